#include "store/posix_log_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "common/failure.h"

namespace sentrel {
namespace {

/// Takes what was written of an entry off the file again, so that the next one begins a line.
void TakeBack(int file, ssize_t written) {
  const off_t end = lseek(file, 0, SEEK_CUR);
  struct stat status {};
  const bool last = fstat(file, &status) == 0 && status.st_size == end;
  // Where it cannot be done, half an entry stays.
  [[maybe_unused]] const bool taken = last && ftruncate(file, end - written) == 0;
}

[[noreturn]] void Fail(const std::string& path, int error) {
  throw Failure(fmt::format("{}: {}", path, std::generic_category().message(error)));
}

}  // namespace

void PosixLogFile::Append(const std::string& path, std::string_view entry) {
  // O_NONBLOCK: a pipe without a reader or a file that is leased refuses instead of waiting.
  const int file =
      open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0644);
  if (file < 0) Fail(path, errno);
  const ssize_t written = write(file, entry.data(), entry.size());
  const int error = written < 0 ? errno : ENOSPC;
  if (written > 0 && written < static_cast<ssize_t>(entry.size())) TakeBack(file, written);
  close(file);
  if (written != static_cast<ssize_t>(entry.size())) Fail(path, error);
}

}  // namespace sentrel
