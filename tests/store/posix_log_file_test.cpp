#include "store/posix_log_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <fstream>

#include "store/write_signals.h"
#include "store_folder.h"

namespace sentrel {
namespace {

namespace fs = std::filesystem;

class PosixLogFileTest : public testing::Test {
 protected:
  std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
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
  EXPECT_EQ(Read(path_), "one\r\ntwo M\xC3\xA4rz\r\n");
  EXPECT_EQ(static_cast<unsigned>(fs::status(path_).permissions()), 0644U);
}

TEST_F(PosixLogFileTest, AFileMovedOrRemovedMeanwhileIsBegunAnew) {
  Append(path_, "one");
  fs::rename(path_, folder_.Root() / "old.log");
  Append(path_, "two");
  EXPECT_EQ(Read(path_), "two");
  fs::remove(path_);
  Append(path_, "three");
  EXPECT_EQ(Read(path_), "three");
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
  for (const fs::path& path : paths) EXPECT_FALSE(Append(path)) << path;
  EXPECT_THROW(log_.Append("/dev/full", "x"), Failure);
}

TEST_F(PosixLogFileTest, RefusesAFolderWithoutPermission) {
  fs::permissions(folder_.Root(), fs::perms(0555));
  AsOrdinaryUser([&] { EXPECT_FALSE(Append(path_)); });
  fs::permissions(folder_.Root(), fs::perms::all);
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
  const pid_t child = fork();
  if (child == 0) {
    IgnoreWriteSignals();
    const rlimit limit{10, 20};
    setrlimit(RLIMIT_FSIZE, &limit);
    const bool within = Append(path_, "12345678\r\n");
    const bool beyond = Append(path_, "beyond\r\n");
    const rlimit more{15, 20};
    const bool partly = setrlimit(RLIMIT_FSIZE, &more) == 0 && Append(path_, "beyond\r\n");
    _exit(within && !beyond && !partly ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Read(path_), "12345678\r\n");
}

TEST_F(PosixLogFileTest, EntriesOfTwoProcessesNeverMix) {
  constexpr int kEntries = 500;
  std::array<pid_t, 2> children;
  for (std::size_t writer = 0; writer < children.size(); ++writer) {
    children[writer] = fork();
    if (children[writer] != 0) continue;
    const std::string line(2000, writer == 0 ? 'a' : 'b');
    for (int i = 0; i < kEntries; ++i) log_.Append(path_, line + "\n");
    _exit(0);
  }
  for (const pid_t child : children) waitpid(child, nullptr, 0);
  std::ifstream file(path_);
  std::string line;
  int lines = 0;
  while (std::getline(file, line)) {
    ++lines;
    ASSERT_EQ(line, std::string(2000, line.front()));
  }
  EXPECT_EQ(lines, 2 * kEntries);
}

}  // namespace
}  // namespace sentrel
