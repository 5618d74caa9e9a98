#include "mib/mapped_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "common/failure.h"

namespace sentrel::mib {
namespace {

[[noreturn]] void Fail(const std::string& path, int error) {
  throw Failure(path + ": " + std::generic_category().message(error));
}

}  // namespace

MappedFile::MappedFile(const std::string& path, Loading loading) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) Fail(path, errno);
  struct stat status {};
  const bool usable = fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0;
  const auto size = static_cast<size_t>(status.st_size);
  const int flags = MAP_PRIVATE | (loading == Loading::AtOnce ? MAP_POPULATE : 0);
  void* place = usable ? mmap(nullptr, size, PROT_READ, flags, file, 0) : MAP_FAILED;
  const int error = usable ? errno : EINVAL;
  close(file);
  if (place == MAP_FAILED) Fail(path, error);
  bytes_ = {static_cast<const char*>(place), size};
}

void MappedFile::LeaveMemory() const {
  madvise(const_cast<char*>(bytes_.data()), bytes_.size(), MADV_DONTNEED);
}

MappedFile::~MappedFile() {
  munmap(const_cast<char*>(bytes_.data()), bytes_.size());
}

}  // namespace sentrel::mib
