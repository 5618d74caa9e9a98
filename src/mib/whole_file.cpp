#include "mib/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

#include "common/failure.h"

namespace sentrel::mib {
namespace {

namespace fs = std::filesystem;

bool WriteAll(int file, std::string_view bytes) {
  off_t place = 0;
  while (!bytes.empty()) {
    const ssize_t written = pwrite(file, bytes.data(), bytes.size(), place);
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
    place += written;
  }
  return true;
}

/// With its place on the disk settled, the renaming need not wait for the disk. Where the file
/// system knows no such thing, the writing settles it.
void Allocate(int file, size_t size) {
  if (size > 0) fallocate(file, 0, 0, static_cast<off_t>(size));
}

/// What goes wrong here goes wrong again when it matters.
void FillWithZeros(int file, size_t size) {
  Allocate(file, size);
  constexpr size_t kPart = 1 << 18;
  const std::string zeros(kPart, '\0');
  for (size_t place = 0; place < size; place += zeros.size()) {
    if (pwrite(file, zeros.data(), zeros.size(), static_cast<off_t>(place)) < 0) return;
  }
}

/// A draft of the same name is left from a process that died, or planted: it goes, and nothing that
/// it may point to is touched.
int OpenAnew(const std::string& draft) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  const int file = open(draft.c_str(), kFlags, 0666);
  if (file >= 0 || errno != EEXIST || unlink(draft.c_str()) != 0) return file;
  return open(draft.c_str(), kFlags, 0666);
}

}  // namespace

WholeFile::WholeFile(std::string path)
    : path_(std::move(path)), draft_(path_ + "." + std::to_string(getpid()) + ".new") {
  std::error_code ignored;
  if (const fs::path folder = fs::path(path_).parent_path(); !folder.empty()) {
    fs::create_directories(folder, ignored);
  }
  file_ = OpenAnew(draft_);
}

WholeFile::~WholeFile() {
  if (file_ < 0) return;
  if (preparation_.valid()) preparation_.wait();
  close(file_);
  unlink(draft_.c_str());
}

void WholeFile::Prepare(size_t size) {
  if (file_ < 0) return;
  Attempt([&] {
    preparation_ = std::async(
        std::launch::async, [file = file_, size] { Attempt([&] { FillWithZeros(file, size); }); });
  });
}

void WholeFile::Write(std::string_view bytes) {
  if (preparation_.valid()) preparation_.wait();
  std::error_code error;
  const bool isWritten = WriteDraft(bytes);
  if (isWritten) fs::rename(draft_, path_, error);
  if (!isWritten || error) {
    unlink(draft_.c_str());
    throw Failure(path_ + ": cannot be written");
  }
}

bool WholeFile::WriteDraft(std::string_view bytes) {
  if (file_ < 0) return false;
  Allocate(file_, bytes.size());
  const bool isWritten =
      WriteAll(file_, bytes) && ftruncate(file_, static_cast<off_t>(bytes.size())) == 0;
  return close(std::exchange(file_, -1)) == 0 && isWritten;
}

void WriteWhole(const std::string& path, std::string_view bytes) {
  WholeFile(path).Write(bytes);
}

}  // namespace sentrel::mib
