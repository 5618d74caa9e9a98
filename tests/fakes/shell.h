#pragma once

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace sentrel {

/// A folder that is gone with its object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    if (!mkdtemp(path_.data())) throw std::runtime_error("no temporary folder");
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  long Files() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }

 private:
  std::string path_ = std::filesystem::temp_directory_path() / "sentrel-test-XXXXXX";
};

inline std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

/// The contents of a folder's files, in the order of their names.
inline std::vector<std::string> FilesIn(const std::string& folder) {
  std::vector<std::string> contents;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    contents.push_back(entry.path());
  }
  std::sort(contents.begin(), contents.end());
  for (std::string& content : contents) content = ReadFile(content);
  return contents;
}

/// What a command prints to standard output. Throws when it fails.
inline std::string Output(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) throw std::runtime_error(command + ": not started");
  std::string text;
  std::array<char, 4096> part{};
  for (size_t got = 0; (got = fread(part.data(), 1, part.size(), pipe)) > 0;) {
    text.append(part.data(), got);
  }
  if (pclose(pipe) != 0) throw std::runtime_error(command + ": failed");
  return text;
}

}  // namespace sentrel
