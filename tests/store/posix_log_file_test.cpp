#include "store/posix_log_file.h"

#include <fcntl.h>

#include "store_folder.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;

class PosixLogFileTest : public testing::Test {
 protected:
  bool Append(const fs::path& path, const std::string& entry = "entry\r\n") {
    return Attempt([&] { log_.Append(path, entry); });
  }

  StoreFolder folder_;
  fs::path path_ = folder_.Root() / "traps.log";
  PosixLogFile log_;
};

TEST_F(PosixLogFileTest, MakesTheFileForItsOwnerAndAppends) {
  const mode_t before = umask(0);
  EXPECT_TRUE(Append(path_, "one\r\n"));
  umask(before);
  EXPECT_TRUE(Append(path_, "two M\xC3\xA4rz\r\n"));
  EXPECT_EQ(ReadFile(path_), "one\r\ntwo M\xC3\xA4rz\r\n");
  EXPECT_EQ(static_cast<unsigned>(fs::status(path_).permissions()), 0644U);
}

TEST_F(PosixLogFileTest, AFileMovedOrRemovedMeanwhileIsBegunAnew) {
  Append(path_, "one");
  fs::rename(path_, folder_.Root() / "old.log");
  Append(path_, "two");
  EXPECT_EQ(ReadFile(path_), "two");
  fs::remove(path_);
  Append(path_, "three");
  EXPECT_EQ(ReadFile(path_), "three");
}

TEST_F(PosixLogFileTest, RefusesWhatCannotTakeTheEntryAtOnce) {
  const fs::path fifo = folder_.Root() / "fifo";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  fs::create_symlink("loop", folder_.Root() / "loop");
  const fs::path paths[] = {"",
                            folder_.Root(),
                            folder_.Root() / "vanished" / "traps.log",
                            "/dev/full",
                            fifo,
                            folder_.Root() / "loop",
                            folder_.Root() / std::string(300, 'x'),
                            "/proc/version/traps.log"};
  for (const fs::path& path : paths) {
    EXPECT_FALSE(Append(path)) << path;
    EXPECT_NE(log_.Obstacle(path), "") << path << ": what cannot be foreseen is remembered";
  }
  EXPECT_FALSE(Append("/dev/full"));
  EXPECT_EQ(log_.Obstacle("/dev/full"),
            "The last entry could not be written: No space left on device.");
  EXPECT_EQ(log_.Obstacle(path_), "") << "another file";
  EXPECT_TRUE(Append(path_));
  EXPECT_EQ(log_.Obstacle("/dev/full"), "") << "nothing was written there last";
  fs::permissions(folder_.Root(), fs::perms(0555));
  AsOrdinaryUser([&] { EXPECT_FALSE(Append(path_)); });
  fs::permissions(folder_.Root(), fs::perms::all);
}

TEST_F(PosixLogFileTest, NamesAreMadeWholeAsAShellWould) {
  ExpectSuccess(Start([&] {
    setenv("HOME", "/home/ann", 1);
    fs::current_path(folder_.Root());
    const std::pair<std::string, fs::path> cases[] = {{"", ""},
                                                      {"/var/log/traps.log", "/var/log/traps.log"},
                                                      {"~", "/home/ann"},
                                                      {"~/traps.log", "/home/ann/traps.log"},
                                                      {"traps.log", path_},
                                                      {"~bob/x", folder_.Root() / "~bob/x"}};
    for (const auto& [name, whole] : cases) EXPECT_EQ(log_.WholePath(name), whole);
  }));
}

TEST_F(PosixLogFileTest, TellsWhatStandsInTheWayAndMakesNothing) {
  const fs::path root = folder_.Root();
  Append(root / "file");
  fs::permissions(root / "file", fs::perms(0666));
  fs::create_directory(root / "locked");
  Append(root / "locked" / "file");
  fs::permissions(root / "locked" / "file", fs::perms(0444));
  fs::permissions(root / "locked", fs::perms(0555));
  fs::create_symlink("loop", root / "loop");
  fs::create_symlink("new", root / "to-new");
  fs::create_symlink("gone/new", root / "to-gone");
  const std::string folder = "This is a folder. Please add the name of a file.";
  const std::string gone = "There is no such folder.";
  const std::string refused = "Nothing can be written here: ";
  const std::pair<fs::path, std::string> cases[] = {
      {path_, ""},
      {root / "file", ""},
      {"/dev/null", ""},
      {root / "to-new", ""},
      {root, folder},
      {root / "gone" / "x", gone},
      {root / "gone/", gone},
      {root / "to-gone", gone},
      {root / "locked" / "x", refused + "Permission denied."},
      {root / "locked" / "file", refused + "Permission denied."},
      {root / "file" / "x", refused + "Not a directory."},
      {root / "loop", refused + "Too many levels of symbolic links."},
      {root / std::string(300, 'x'), refused + "File name too long."},
      {"/proc/x", refused + "Permission denied."}};
  const auto files = [&] {
    return std::distance(fs::recursive_directory_iterator(root),
                         fs::recursive_directory_iterator());
  };
  const auto before = files();
  AsOrdinaryUser([&] {
    for (const auto& [path, obstacle] : cases) EXPECT_EQ(log_.Obstacle(path), obstacle) << path;
  });
  EXPECT_EQ(files(), before);
  fs::permissions(root / "locked", fs::perms(0755));
}

TEST_F(PosixLogFileTest, AFullPipeRefusesAndAReaderThatLeavesEndsNothing) {
  const fs::path fifo = folder_.Root() / "fifo";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  const int reader = open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  const std::string entry(4096, 'x');
  int taken = 0;
  while (Append(fifo, entry)) ASSERT_LT(++taken, 1000);
  EXPECT_GT(taken, 0);
  close(reader);
  EXPECT_FALSE(Append(fifo, entry));
}

TEST_F(PosixLogFileTest, AFileAtTheSizeLimitLosesTheEntryNotTheProcess) {
  OnAFullDisk(10, [&] {
    EXPECT_TRUE(Append(path_, "12345678\r\n"));
    EXPECT_FALSE(Append(path_, "beyond\r\n"));
    const rlimit more{15, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &more);
    EXPECT_FALSE(Append(path_, "in part\r\n"));
  });
  EXPECT_EQ(ReadFile(path_), "12345678\r\n");
}

TEST_F(PosixLogFileTest, EntriesOfTwoProcessesNeverMix) {
  constexpr int kEntries = 500;
  const auto write = [this](char letter) {
    for (int i = 0; i < kEntries; ++i) log_.Append(path_, std::string(2000, letter) + "\n");
  };
  const pid_t writers[] = {Start([&] { write('a'); }), Start([&] { write('b'); })};
  for (const pid_t writer : writers) ExpectSuccess(writer);
  std::ifstream file(path_);
  int lines = 0;
  for (std::string line; std::getline(file, line); ++lines)
    ASSERT_EQ(line, std::string(2000, line.front()));
  EXPECT_EQ(lines, 2 * kEntries);
}

}  // namespace
}  // namespace sentrel
