#pragma once

#include <string>
#include <string_view>

namespace sentrel {

/// Text files that are only ever appended to. Called on the event loop.
class LogFile {
 public:
  virtual ~LogFile() = default;
  /// Opens the file, making it if it does not exist (its folder must), appends the entry in one
  /// write, so that entries of other processes stand before or behind it, and closes. Never waits
  /// for another process. Throws Failure where the entry is not written in full.
  virtual void Append(const std::string& path, std::string_view entry) = 0;
};

}  // namespace sentrel
