#pragma once

#include <string>
#include <string_view>

namespace sentrel::mib {

/// A file mapped into memory for reading. The file must not be cut short meanwhile: images are
/// replaced by renaming, never written in place.
class MappedFile {
 public:
  /// When the pages come in that are in the system's memory already.
  enum class Loading { AtOnce, WhenRead };

  /// Throws Failure when the file cannot be read or is empty.
  MappedFile(const std::string& path, Loading loading);
  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  /// Gives the memory back that the bytes take; they are fetched again when they are read.
  void LeaveMemory() const;
  std::string_view Bytes() const { return bytes_; }

 private:
  std::string_view bytes_;
};

}  // namespace sentrel::mib
