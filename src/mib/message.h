#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace sentrel::mib {

/// What is wrong with a file: "IF-MIB.txt:12: what is wrong".
struct Message {
  std::string file;
  /// From 1; 0 where the whole file or folder is meant.
  std::uint32_t line = 0;
  std::string text;

  std::string ToText() const {
    return line == 0 ? file + ": " + text : file + ":" + std::to_string(line) + ": " + text;
  }
};

using Messages = std::vector<Message>;

/// A message and the number of the file that it is about.
using FileMessage = std::pair<std::uint32_t, Message>;
using FileMessages = std::vector<FileMessage>;

}  // namespace sentrel::mib
