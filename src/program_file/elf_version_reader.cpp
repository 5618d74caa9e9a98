#include "program_file/elf_version_reader.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>
#include <string_view>

#include "common/failure.h"
#include "program_file/note_reader.h"

namespace sentrel {
namespace {

/// The bytes of a file; none where it is no plain file or cannot be read.
class FileBytes {
 public:
  explicit FileBytes(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status {};
    if (descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
      Map(descriptor, static_cast<size_t>(status.st_size));
    }
    if (descriptor >= 0) close(descriptor);
  }
  ~FileBytes() {
    if (start_ != MAP_FAILED) munmap(start_, size_);
  }
  FileBytes(const FileBytes&) = delete;
  FileBytes& operator=(const FileBytes&) = delete;

  std::string_view View() const {
    return start_ == MAP_FAILED ? "" : std::string_view(static_cast<const char*>(start_), size_);
  }

 private:
  void Map(int descriptor, size_t size) {
    if (size == 0) return;
    size_ = size;
    start_ = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
  }

  void* start_ = MAP_FAILED;
  size_t size_ = 0;
};

}  // namespace

std::optional<VersionRecord> ElfVersionReader::ReadVersion(const std::string& file) const {
  return VersionIn(FileBytes(file).View());
}

std::string ElfVersionReader::ReadLegalNotice(const std::string& file) const {
  return LegalNoticeIn(FileBytes(file).View());
}

LocalTime ElfVersionReader::WrittenAt(const std::string& file) const {
  struct stat status {};
  std::tm local{};
  if (stat(file.c_str(), &status) != 0 || !localtime_r(&status.st_mtime, &local)) {
    throw Failure("There is no date of the file " + file + ".");
  }
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

}  // namespace sentrel
