#include "documents/memory_file.h"

#include <fmt/format.h>
#include <sys/mman.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "common/failure.h"

namespace sentrel {
namespace {

int OpenInMemory() {
  return memfd_create("workbook", MFD_CLOEXEC);
}

}  // namespace

MemoryFile::MemoryFile() : descriptor_(OpenInMemory()) {
  if (descriptor_ < 0) {
    throw Failure(fmt::format("The workbook cannot be made: {}.", std::strerror(errno)));
  }
}

MemoryFile::~MemoryFile() {
  close(descriptor_);
}

std::string MemoryFile::Path() const {
  return fmt::format("/proc/self/fd/{}", descriptor_);
}

std::string MemoryFile::Bytes() const {
  const auto size = lseek(descriptor_, 0, SEEK_END);
  std::string bytes(static_cast<std::size_t>(std::max<off_t>(size, 0)), '\0');
  if (pread(descriptor_, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
    throw Failure("The workbook cannot be read back.");
  }
  return bytes;
}

}  // namespace sentrel

/// Takes the place of the workbook library's function of this name. The library writes the parts of
/// a workbook to temporary files first and does not notice when their disk is full: what it then
/// makes of them are empty parts. In memory there is no disk to fill.
extern "C" [[gnu::visibility("default")]] FILE* lxw_tmpfile(char*) {
  const int descriptor = sentrel::OpenInMemory();
  FILE* file = descriptor < 0 ? nullptr : fdopen(descriptor, "w+b");
  if (!file && descriptor >= 0) close(descriptor);
  return file;
}
