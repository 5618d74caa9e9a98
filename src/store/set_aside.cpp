#include "store/set_aside.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

namespace sentrel {
namespace fs = std::filesystem;
namespace {

/// One process at a time may set files of a folder aside.
class FolderLock {
 public:
  FolderLock(const fs::path& folder, const Patience& patience)
      : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (descriptor_ < 0) throw Failure("The folder cannot be read.");
    while (!(held_ = flock(descriptor_, LOCK_EX | LOCK_NB) == 0) && patience.WaitALittle()) {
    }
  }
  ~FolderLock() { close(descriptor_); }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  bool IsHeld() const { return held_; }

 private:
  int descriptor_;
  bool held_ = false;
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

bool IsDamaged(const fs::path& file, const Patience& patience) {
  try {
    const Database sound(file, patience);
    return false;
  } catch (const DatabaseFailure& failure) {
    if (!failure.IsDamage()) throw;
    return true;
  }
}

void Flush(const fs::path& file) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  const bool flushed = descriptor >= 0 && fsync(descriptor) == 0;
  if (descriptor >= 0) close(descriptor);
  if (!flushed) throw Failure("The copy of the damaged file may not last.");
}

}  // namespace

void SetAside(const fs::path& file, const LocalTime& now, const Patience& patience) {
  const FolderLock lock(file.parent_path(), patience);
  if (!lock.IsHeld() || !IsDamaged(file, patience)) return;
  const fs::path copy = UnusedName(file, now);
  fs::copy_file(file, copy);
  Flush(copy);
  Database::Reset(file, patience);
}

}  // namespace sentrel
