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
constexpr mode_t kAnyoneExecutes = 0111;

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
  throw Failure(fmt::format("Cannot write the file {}: {}.", path, reason));
}

void Check(bool succeeded, const std::string& path) {
  if (!succeeded) Refuse(path, std::strerror(errno));
}

mode_t ModeFor(const std::string& path, mode_t newFileMode) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    Check(errno == ENOENT, path);
    const mode_t mask = umask(0);
    umask(mask);
    return newFileMode & ~mask;
  }
  if (S_ISDIR(status.st_mode)) Refuse(path, "it is a folder");
  if (!S_ISREG(status.st_mode)) Refuse(path, "it is not a file");
  if ((status.st_mode & kAnyoneWrites) == 0) Refuse(path, "it is write-protected");
  Check(access(path.c_str(), W_OK) == 0, path);
  return status.st_mode & (newFileMode | kAnyoneExecutes);
}

/// Links are followed, also one to a file that is still to be made, so that they go on pointing to
/// the file.
std::string FileBehind(const std::string& path) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  std::filesystem::path behind = path;
  for (int links = 0; links < kMostLinks && std::filesystem::is_symlink(behind, error); ++links) {
    behind = behind.parent_path() / std::filesystem::read_symlink(behind, error);
  }
  behind = std::filesystem::weakly_canonical(behind, error);
  return error ? path : behind.string();
}

int OpenDraft(std::string& name, const std::string& target) {
  const int descriptor = mkostemp(name.data(), O_CLOEXEC);
  if (descriptor < 0 && errno == ENOENT) Refuse(target, "there is no such folder");
  if (descriptor < 0 && errno == EACCES) Refuse(target, "no file may be made in its folder");
  Check(descriptor >= 0, target);
  return descriptor;
}

/// Once its place on the disk is settled, the renaming need not wait for the disk. Where the file
/// system cannot do that, the writing settles it.
void Allocate(int descriptor, std::size_t size) {
  if (size > 0) fallocate(descriptor, 0, 0, static_cast<off_t>(size));
}

/// What goes wrong here goes wrong again when it matters.
void FillWithZeros(int descriptor, std::size_t size) {
  Allocate(descriptor, size);
  const std::string zeros(1 << 18, '\0');
  for (std::size_t place = 0; place < size; place += zeros.size()) {
    const auto at = static_cast<off_t>(place);
    if (pwrite(descriptor, zeros.data(), zeros.size(), at) < 0) return;
  }
}

/// Makes the new name safe. The file is whole by now, so a failure changes nothing.
void SyncFolderOf(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('/') + 1);
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path, mode_t newFileMode)
    : target_(FileBehind(path)),
      mode_(ModeFor(target_, newFileMode)),
      draft_(target_.substr(0, target_.rfind('/') + 1) + ".sentrel-XXXXXX"),
      descriptor_(OpenDraft(draft_, target_)) {}

AtomicFile::~AtomicFile() {
  if (preparation_.valid()) preparation_.wait();
  if (descriptor_ >= 0) close(descriptor_);
  if (!draft_.empty()) unlink(draft_.c_str());
}

void AtomicFile::Prepare(std::size_t size) {
  Attempt([&] {
    preparation_ = std::async(std::launch::async, [descriptor = descriptor_, size] {
      Attempt([&] { FillWithZeros(descriptor, size); });
    });
  });
}

void AtomicFile::Write(std::string_view bytes, SafeFrom safety) {
  if (preparation_.valid()) preparation_.wait();
  Allocate(descriptor_, bytes.size());
  WriteDraft(bytes);
  Check(fchmod(descriptor_, mode_) == 0, target_);
  if (safety == SafeFrom::PowerCut) Check(fsync(descriptor_) == 0, target_);
  Check(close(std::exchange(descriptor_, -1)) == 0, target_);
  Check(std::rename(draft_.c_str(), target_.c_str()) == 0, target_);
  draft_.clear();
  if (safety == SafeFrom::PowerCut) SyncFolderOf(target_);
}

void AtomicFile::WriteDraft(std::string_view bytes) {
  off_t place = 0;
  while (!bytes.empty()) {
    const ssize_t written = pwrite(descriptor_, bytes.data(), bytes.size(), place);
    if (written < 0 && errno == EINTR) continue;
    Check(written >= 0, target_);
    bytes.remove_prefix(static_cast<std::size_t>(written));
    place += written;
  }
  Check(ftruncate(descriptor_, place) == 0, target_);
}

void WriteFile(const std::string& path, std::string_view bytes, mode_t newFileMode) {
  AtomicFile(path, newFileMode).Write(bytes);
}

void MakeFolderFor(const std::string& path) {
  std::error_code ignored;
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
}

}  // namespace sentrel
