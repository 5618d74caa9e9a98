#include "store/posix_log_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "common/failure.h"

namespace sentrel {
namespace fs = std::filesystem;
namespace {

/// Takes what was written of an entry off the file again, so that the next one begins a line.
void TakeBack(int file, ssize_t written) {
  const off_t end = lseek(file, 0, SEEK_CUR);
  struct stat status {};
  const bool last = fstat(file, &status) == 0 && status.st_size == end;
  // Where it cannot be done, half an entry stays.
  [[maybe_unused]] const bool taken = last && ftruncate(file, end - written) == 0;
}

/// Returns the error number, or 0.
int Write(const std::string& path, std::string_view entry) {
  // O_NONBLOCK: a pipe without a reader or a file that is leased refuses instead of waiting.
  const int file =
      open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0644);
  if (file < 0) return errno;
  const ssize_t written = write(file, entry.data(), entry.size());
  const int error = written < 0 ? errno : ENOSPC;
  if (written > 0 && written < static_cast<ssize_t>(entry.size())) TakeBack(file, written);
  close(file);
  return written == static_cast<ssize_t>(entry.size()) ? 0 : error;
}

std::string ObstacleFrom(int error) {
  return fmt::format("Nothing can be written here: {}.", std::generic_category().message(error));
}

bool May(int access, const std::string& path) {
  return faccessat(AT_FDCWD, path.c_str(), access, AT_EACCESS) == 0;
}

std::string ObstacleToMaking(const fs::path& path) {
  const std::string folder = path.parent_path();
  struct stat status {};
  if (stat(folder.c_str(), &status) != 0 && errno == ENOENT) return "There is no such folder.";
  return May(W_OK | X_OK, folder) ? "" : ObstacleFrom(errno);
}

/// Empty where the file that is there, or could be made, seems to take entries.
std::string ObstacleAt(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) return "This is a folder. Please add the name of a file.";
    return May(W_OK, path) ? "" : ObstacleFrom(errno);
  }
  if (errno != ENOENT) return ObstacleFrom(errno);
  std::error_code error;
  const fs::path target = fs::read_symlink(path, error);
  // A link to a file that is not there yet: entries would make that one.
  return error ? ObstacleToMaking(path) : ObstacleAt(fs::path(path).parent_path() / target);
}

}  // namespace

void PosixLogFile::Append(const std::string& path, std::string_view entry) {
  lastError_ = Write(path, entry);
  if (lastError_ == 0) return;
  failedPath_ = path;
  throw Failure(fmt::format("{}: {}", path, std::generic_category().message(lastError_)));
}

std::string PosixLogFile::WholePath(const std::string& name) const {
  if (name.empty() || name.front() == '/') return name;
  const char* home = std::getenv("HOME");
  const bool inHome = home != nullptr && (name == "~" || name.starts_with("~/"));
  std::error_code error;
  const fs::path whole = fs::absolute(inHome ? home + name.substr(1) : name, error);
  return error ? name : whole.string();
}

std::string PosixLogFile::Obstacle(const std::string& path) const {
  std::string obstacle = ObstacleAt(path);
  const bool failed = lastError_ != 0 && path == failedPath_;
  if (!obstacle.empty() || !failed) return obstacle;
  return fmt::format("The last entry could not be written: {}.",
                     std::generic_category().message(lastError_));
}

}  // namespace sentrel
