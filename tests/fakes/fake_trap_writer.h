#pragma once

#include <map>
#include <string>

#include "common/failure.h"
#include "platform/trap_writer.h"

namespace sentrel {

/// Saved traps in memory, by file name. An empty name cannot be written.
class FakeTrapWriter : public TrapWriter {
 public:
  void Write(const std::string& fileName, const SavedTrap& trap) override {
    if (fileName.empty()) throw Failure("The file cannot be written.");
    files[fileName] = trap;
  }
  std::map<std::string, SavedTrap> files;
};

}  // namespace sentrel
