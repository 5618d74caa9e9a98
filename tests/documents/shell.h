#pragma once

#include <string>

namespace sentrel {

/// A folder that is gone with its object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  int Files() const;

 private:
  std::string path_;
};

std::string ReadFile(const std::string& path);

/// What a command prints to standard output. Throws when it fails.
std::string Output(const std::string& command);

}  // namespace sentrel
