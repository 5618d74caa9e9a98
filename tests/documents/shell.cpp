#include "shell.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace sentrel {

TemporaryFolder::TemporaryFolder()
    : path_((std::filesystem::temp_directory_path() / "sentrel-test-XXXXXX").string()) {
  if (!mkdtemp(path_.data())) throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

int TemporaryFolder::Files() const {
  const std::filesystem::directory_iterator files(path_);
  return static_cast<int>(std::distance(begin(files), end(files)));
}

std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

std::string Output(const std::string& command) {
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
