#include "documents/atomic_file.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include "common/failure.h"
#include "shell.h"

namespace sentrel {
namespace {

using testing::HasSubstr;

std::string FailureOf(const std::function<void()>& step) {
  try {
    step();
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "no failure";
}

mode_t Mode(const std::string& path) {
  struct stat status {};
  stat(path.c_str(), &status);
  return status.st_mode & 07777;
}

/// The disk is full, as far as this process can see, while this object lives.
class FullDisk {
 public:
  FullDisk() {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit small = before_;
    small.rlim_cur = 1000;
    setrlimit(RLIMIT_FSIZE, &small);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  void (*handler_)(int) = nullptr;
};

class AtomicFile : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string path_ = folder_ / "Traps.csv";
};

TEST_F(AtomicFile, WritesANewFileAndReplacesAnOldOneKeepingItsMode) {
  WriteFile(path_, "one");
  EXPECT_EQ(ReadFile(path_), "one");
  EXPECT_EQ(Mode(path_) & 0600, 0600u);
  chmod(path_.c_str(), 0640);
  WriteFile(path_, std::string("t\0wo", 4));
  EXPECT_EQ(ReadFile(path_), std::string("t\0wo", 4));
  EXPECT_EQ(Mode(path_), 0640u);
  EXPECT_EQ(folder_.Files(), 1);
}

TEST_F(AtomicFile, WritesThroughALink) {
  WriteFile(path_, "old");
  const std::string link = folder_ / "link";
  std::filesystem::create_symlink("Traps.csv", link);
  WriteFile(link, "new");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(ReadFile(path_), "new");
}

TEST_F(AtomicFile, AFullDiskLeavesTheOldFileAndNothingElse) {
  WriteFile(path_, "old");
  {
    const FullDisk full;
    EXPECT_EQ(FailureOf([&] { WriteFile(path_, std::string(100000, 'x')); }),
              "Cannot write the file " + path_ + ": File too large.");
  }
  EXPECT_EQ(ReadFile(path_), "old");
  EXPECT_EQ(folder_.Files(), 1);
}

TEST_F(AtomicFile, RefusesWhatIsNoPlaceForAFile) {
  WriteFile(path_, "old");
  chmod(path_.c_str(), 0444);
  EXPECT_THAT(FailureOf([&] { WriteFile(path_, "new"); }), HasSubstr("it is write-protected."));
  EXPECT_EQ(ReadFile(path_), "old");
  EXPECT_THAT(FailureOf([&] { WriteFile(folder_ / "gone/x.csv", "x"); }),
              HasSubstr("No such file or directory."));
  EXPECT_THAT(FailureOf([&] { WriteFile(folder_ / "", "x"); }), HasSubstr("it is a folder."));
  EXPECT_THAT(FailureOf([&] { WriteFile("/dev/full", "x"); }), HasSubstr("it is not a file."));
  EXPECT_EQ(folder_.Files(), 1);
}

}  // namespace
}  // namespace sentrel
