#include "store/set_aside.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

namespace sentrel {
namespace fs = std::filesystem;
namespace {

/// One process at a time may rename in a folder. A process that does not get the lock leaves the
/// matter to the one that has it.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder)
      : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
        held_(descriptor_ >= 0 && flock(descriptor_, LOCK_EX | LOCK_NB) == 0) {}
  ~FolderLock() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  bool IsHeld() const { return held_; }

 private:
  int descriptor_;
  bool held_;
};

fs::path UnusedName(const fs::path& file, const LocalTime& now) {
  const std::string dated =
      fmt::format("{}.damaged-{:04}{:02}{:02}-{:02}{:02}{:02}", file.native(), now.year, now.month,
                  now.day, now.hour, now.minute, now.second);
  std::string name = dated;
  std::error_code ignored;
  for (int count = 2; fs::exists(name, ignored); ++count) name = fmt::format("{}-{}", dated, count);
  return name;
}

}  // namespace

void SetAside(const fs::path& file, const Database& open, const LocalTime& now) {
  const FolderLock lock(file.parent_path());
  if (!lock.IsHeld() || open.HasMoved()) return;
  const fs::path name = UnusedName(file, now);
  std::error_code ignored;
  // The journal first: left beside a fresh file, it would be played back into it.
  fs::rename(file.native() + "-journal", name.native() + "-journal", ignored);
  fs::rename(file, name, ignored);
}

}  // namespace sentrel
