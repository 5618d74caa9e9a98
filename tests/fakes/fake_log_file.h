#pragma once

#include <map>
#include <string>

#include "common/failure.h"
#include "platform/log_file.h"

namespace sentrel {

/// Log files in memory, by path. An empty path cannot be opened.
class FakeLogFile : public LogFile {
 public:
  bool failing = false;
  std::map<std::string, std::string> contents;

  void Append(const std::string& path, std::string_view entry) override {
    if (failing || path.empty()) throw Failure("The log cannot be written.");
    contents[path].append(entry);
  }
};

}  // namespace sentrel
