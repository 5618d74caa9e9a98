#include "common/atomic_file.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "common/failure.h"
#include "fakes/shell.h"

namespace sentrel {
namespace {

using testing::EndsWith;
using testing::ThrowsMessage;

unsigned Mode(const std::string& path) {
  return static_cast<unsigned>(std::filesystem::status(path).permissions());
}

class AtomicFileTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string path_ = folder_ / "Traps.csv";
};

TEST_F(AtomicFileTest, WritesANewFileAndReplacesAnOldOneKeepingItsMode) {
  WriteFile(path_, "one");
  EXPECT_EQ(ReadFile(path_), "one");
  EXPECT_EQ(Mode(path_) & 0600, 0600u);
  chmod(path_.c_str(), 0640);
  WriteFile(path_, std::string("t\0wo", 4));
  EXPECT_EQ(ReadFile(path_), std::string("t\0wo", 4));
  EXPECT_EQ(Mode(path_), 0640u);
  WriteFile(path_, "secret", 0600);
  EXPECT_EQ(Mode(path_), 0600u) << "nobody may read it who could not a new one";
  EXPECT_EQ(folder_.Files(), 1);
}

/// The size told beforehand is a guess, and there may be nothing to write in the end.
TEST_F(AtomicFileTest, PreparedHoldsNothingButWhatIsWritten) {
  for (const size_t guess : {0, 1, 5'000'000}) {
    AtomicFile file(path_);
    file.Prepare(guess);
    const std::string text(1'000'000, static_cast<char>('a' + guess % 7));
    file.Write(text, AtomicFile::SafeFrom::Crash);
    EXPECT_EQ(ReadFile(path_), text) << guess;
  }
  AtomicFile(path_).Prepare(5'000'000);
  EXPECT_EQ(std::filesystem::file_size(path_), 1'000'000);
  EXPECT_EQ(folder_.Files(), 1);
}

TEST_F(AtomicFileTest, AReaderOfTheOldFileKeepsIt) {
  WriteFile(path_, "old");
  std::ifstream reader(path_);
  WriteFile(path_, "");
  EXPECT_EQ(ReadFile(path_), "");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
}

TEST_F(AtomicFileTest, MakesAFolderOnlyWhenAskedTo) {
  const std::string path = folder_ / "deep/er/file";
  MakeFolderFor(path);
  WriteFile(path, "new");
  EXPECT_EQ(ReadFile(path), "new");
  MakeFolderFor(path + "/below");
  EXPECT_THROW(WriteFile(path + "/below", ""), Failure);
}

TEST_F(AtomicFileTest, WritesThroughALinkAlsoToAFileThatIsStillToBeMade) {
  const std::string link = folder_ / "link";
  std::filesystem::create_symlink("Traps.csv", link);
  for (const char* text : {"made", "replaced"}) {
    WriteFile(link, text);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadFile(path_), text);
  }
}

TEST_F(AtomicFileTest, AFullDiskLeavesTheOldFileAndNothingElse) {
  WriteFile(path_, "old");
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{1000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_THAT([&] { WriteFile(path_, std::string(100000, 'x')); },
              ThrowsMessage<Failure>("Cannot write the file " + path_ + ": File too large."));
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(ReadFile(path_), "old");
  EXPECT_EQ(folder_.Files(), 1);
}

TEST_F(AtomicFileTest, RefusesWhatIsNoPlaceForAFile) {
  WriteFile(path_, "old");
  chmod(path_.c_str(), 0444);
  std::filesystem::create_symlink("loop", folder_ / "loop");
  const std::pair<std::string, const char*> cases[] = {
      {path_, "it is write-protected."},
      {folder_ / "loop", "Too many levels of symbolic links."},
      {folder_ / "gone/x.csv", "there is no such folder."},
      {folder_ / std::string(300, 'n'), "File name too long."},
      {folder_ / "", "it is a folder."},
      {"/dev/full", "it is not a file."}};
  for (const auto& refused : cases) {
    EXPECT_THAT([&] { WriteFile(refused.first, "new"); },
                ThrowsMessage<Failure>(EndsWith(refused.second)));
  }
  EXPECT_EQ(ReadFile(path_), "old");
  EXPECT_EQ(folder_.Files(), 2);
}

}  // namespace
}  // namespace sentrel
