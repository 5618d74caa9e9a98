#pragma once

#include <sys/types.h>

#include <cstddef>
#include <future>
#include <string>
#include <string_view>

namespace sentrel {

/// A file that is written whole or not at all: the bytes go to a draft beside it, which takes its
/// place. A reader finds either the old file or the whole new one, whatever happens meanwhile.
/// Writes through a symbolic link. Belongs to one thread.
class AtomicFile {
 public:
  /// What the bytes are safe from when Write returns.
  enum class SafeFrom {
    PowerCut,
    /// For a file that can be made again: waiting for the disk would take too long.
    Crash,
  };

  /// Refuses a write-protected file, a folder, a device, and a place where no file can be made. A
  /// file that was not there gets `newFileMode`, less what the process masks; one that was keeps
  /// its permissions, but nobody may read or write it who could not a new one. Throws Failure with
  /// the reason.
  explicit AtomicFile(const std::string& path, mode_t newFileMode = 0666);
  /// Leaves nothing behind but what Write has completed.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  /// Lets a thread of its own fetch the memory that the system needs for this many bytes, which
  /// takes longer than to copy them there. A guess will do. Never throws.
  void Prepare(std::size_t size);
  /// Replaces the file. Called once. Throws Failure with the reason; then an old file is as it was.
  void Write(std::string_view bytes, SafeFrom safety = SafeFrom::PowerCut);

 private:
  void WriteDraft(std::string_view bytes);

  const std::string target_;
  const mode_t mode_;
  std::string draft_;
  int descriptor_ = -1;
  std::future<void> preparation_;
};

/// Writes a file whole or not at all, safe from a power cut. Refuses and throws as AtomicFile does.
void WriteFile(const std::string& path, std::string_view bytes, mode_t newFileMode = 0666);

/// Makes the folder that the file is to be in. What goes wrong here shows when the file is written.
void MakeFolderFor(const std::string& path);

}  // namespace sentrel
