#pragma once

#include <string>
#include <string_view>

namespace sentrel {

/// Text files that are only ever appended to. Called on the event loop.
class LogFile {
 public:
  virtual ~LogFile() = default;
  /// Opens the file, making it if it does not exist (its folder must), appends the entry in one
  /// write, so that entries of other processes come before or after it, and closes. Never waits
  /// for another process. Throws Failure where the entry is not written in full.
  virtual void Append(const std::string& path, std::string_view entry) = 0;
  /// The whole path of a file that a person names: "~" in front is the user's home folder, and a
  /// relative name begins at the current folder. An empty name stays empty.
  virtual std::string WholePath(const std::string& name) const = 0;
  /// What prevents entries at this path, in a sentence for people, or else why the last
  /// entry was not written, if it was for this path; empty where nothing is known. Makes no file
  /// and changes none.
  virtual std::string Obstacle(const std::string& path) const = 0;
};

}  // namespace sentrel
