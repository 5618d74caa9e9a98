#include "mib/source_text.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "common/failure.h"

namespace sentrel::mib {
namespace {

class OpenFile {
 public:
  explicit OpenFile(const std::string& path)
      : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (file_ < 0) throw Failure(std::generic_category().message(errno));
  }
  ~OpenFile() { close(file_); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  size_t Size() const {
    struct stat status {};
    if (fstat(file_, &status) != 0 || !S_ISREG(status.st_mode)) throw Failure("is no regular file");
    return static_cast<size_t>(status.st_size);
  }

  size_t Read(char* place, size_t most) const {
    const ssize_t got = read(file_, place, most);
    if (got < 0) throw Failure(std::generic_category().message(errno));
    return static_cast<size_t>(got);
  }

 private:
  int file_;
};

}  // namespace

void SourceText::Load(const std::string& path) {
  size_ = 0;
  const OpenFile file(path);
  const size_t size = file.Size();
  if (size > kLargest) throw Failure("is larger than 32 megabytes, too large for a MIB module");
  if (buffer_.size() < size) buffer_.resize(size);
  while (size_ < size) {
    const size_t got = file.Read(buffer_.data() + size_, size - size_);
    if (got == 0) break;
    size_ += got;
  }
  if (std::memchr(buffer_.data(), '\n', size_) == nullptr) {
    std::replace(buffer_.data(), buffer_.data() + size_, '\r', '\n');
  }
}

}  // namespace sentrel::mib
