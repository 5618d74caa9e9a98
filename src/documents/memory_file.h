#pragma once

#include <string>

namespace sentrel {

/// A file in memory, for a library that writes only to files.
class MemoryFile {
 public:
  /// Throws Failure.
  MemoryFile();
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  /// Opens the same file as long as the object lives.
  std::string Path() const;
  /// All of it. Throws Failure.
  std::string Bytes() const;

 private:
  int descriptor_;
};

}  // namespace sentrel
