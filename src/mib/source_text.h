#pragma once

#include <string>
#include <string_view>

namespace sentrel::mib {

/// Reads whole source files, one after the other, into one buffer.
class SourceText {
 public:
  static constexpr size_t kLargest = 32 * 1024 * 1024;

  /// Throws Failure, whose text leaves the path out, when the file is not a regular one, cannot
  /// be read or is larger than kLargest.
  void Load(const std::string& path);
  /// The last file's bytes, until the next call of Load. Line ends of CR alone have become LF.
  std::string_view Bytes() const { return {buffer_.data(), size_}; }

 private:
  std::string buffer_;
  size_t size_ = 0;
};

}  // namespace sentrel::mib
