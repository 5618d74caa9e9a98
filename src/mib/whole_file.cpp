#include "mib/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "common/failure.h"

namespace sentrel::mib {
namespace {

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

bool WriteNew(const std::string& path, std::string_view bytes) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) return false;
  // With its place on the disk settled, the renaming need not wait for the disk. Where the file
  // system knows no such thing, the writing settles it.
  if (!bytes.empty()) fallocate(file, 0, 0, static_cast<off_t>(bytes.size()));
  const bool isWritten = WriteAll(file, bytes);
  return close(file) == 0 && isWritten;
}

}  // namespace

void WriteWhole(const std::string& path, std::string_view bytes) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  if (const fs::path folder = fs::path(path).parent_path(); !folder.empty()) {
    fs::create_directories(folder, ignored);
  }
  const std::string draft = path + "." + std::to_string(getpid()) + ".new";
  std::error_code error;
  const bool isWritten = WriteNew(draft, bytes);
  if (isWritten) fs::rename(draft, path, error);
  if (isWritten && !error) return;
  fs::remove(draft, ignored);
  throw Failure(path + ": cannot be written");
}

}  // namespace sentrel::mib
