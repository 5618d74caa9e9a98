#include "common/atomic_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <utility>

#include "common/failure.h"

namespace sentrel {
namespace {

constexpr mode_t kAnyoneWrites = 0222;

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
  throw Failure(fmt::format("Cannot write the file {}: {}.", path, reason));
}

void Check(bool succeeded, const std::string& path) {
  if (!succeeded) Refuse(path, std::strerror(errno));
}

mode_t ModeFor(const std::string& path, mode_t newFileMode) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    const mode_t mask = umask(0);
    umask(mask);
    return newFileMode & ~mask;
  }
  if (S_ISDIR(status.st_mode)) Refuse(path, "it is a folder");
  if (!S_ISREG(status.st_mode)) Refuse(path, "it is not a file");
  if ((status.st_mode & kAnyoneWrites) == 0) Refuse(path, "it is write-protected");
  Check(access(path.c_str(), W_OK) == 0, path);
  return status.st_mode & 07777;
}

/// A link is followed, so that it goes on pointing to the file.
std::string FileBehind(const std::string& path) {
  std::error_code error;
  const auto behind = std::filesystem::weakly_canonical(path, error);
  return error ? path : behind.string();
}

/// The new file until it takes the place of the old one; removed when it does not.
class NewFile {
 public:
  explicit NewFile(const std::string& target)
      : target_(target), name_(target.substr(0, target.rfind('/') + 1) + ".sentrel-XXXXXX") {
    descriptor_ = mkostemp(name_.data(), O_CLOEXEC);
    Check(descriptor_ >= 0, target_);
  }
  ~NewFile() {
    if (descriptor_ >= 0) close(descriptor_);
    if (!renamed_) unlink(name_.c_str());
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  void Write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      Check(written >= 0, target_);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void TakePlace(mode_t mode) {
    Check(fchmod(descriptor_, mode) == 0, target_);
    Check(fsync(descriptor_) == 0, target_);
    Check(close(std::exchange(descriptor_, -1)) == 0, target_);
    Check(std::rename(name_.c_str(), target_.c_str()) == 0, target_);
    renamed_ = true;
  }

 private:
  const std::string& target_;
  std::string name_;
  int descriptor_ = -1;
  bool renamed_ = false;
};

/// Makes the new name safe. The file is whole by now, so a failure is nobody's business.
void SyncFolderOf(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('/') + 1);
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace

void WriteFile(const std::string& path, std::string_view bytes, mode_t newFileMode) {
  const std::string target = FileBehind(path);
  const mode_t mode = ModeFor(target, newFileMode);
  NewFile file(target);
  file.Write(bytes);
  file.TakePlace(mode);
  SyncFolderOf(target);
}

}  // namespace sentrel
