#pragma once

#include <cstddef>
#include <future>
#include <string>
#include <string_view>

namespace sentrel::mib {

/// A file that is written so that a reader finds either the old one or the whole new one, whatever
/// happens meanwhile.
class WholeFile {
 public:
  /// Where the folder is missing, it is made.
  explicit WholeFile(std::string path);
  /// Leaves nothing behind but what Write has completed.
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  /// Lets a thread of its own fetch the memory that the system needs for so many bytes, which takes
  /// longer than to copy them there. A guess will do. Never throws.
  void Prepare(size_t size);
  /// Replaces the file. Called once. Throws Failure.
  void Write(std::string_view bytes);

 private:
  bool WriteDraft(std::string_view bytes);

  std::string path_;
  std::string draft_;
  int file_ = -1;
  std::future<void> preparation_;
};

/// Writes a file that is at hand as a whole. Throws Failure.
void WriteWhole(const std::string& path, std::string_view bytes);

}  // namespace sentrel::mib
