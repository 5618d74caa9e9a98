#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sentrel {

/// What a file keeps of one trap. The three lists are parallel and as in Trap.
struct SavedTrap {
  /// Who wrote the file: host name and operating system.
  std::string StationText1;
  std::string StationText2;
  std::string SourceIP;
  std::string TrapCommunity;
  std::vector<std::string> OIDs;
  std::vector<std::int16_t> DataTypes;
  std::vector<std::string> Values;
};

/// Writes traps to files. Called on the event loop.
class TrapWriter {
 public:
  virtual ~TrapWriter() = default;
  /// Writes the file whole or not at all, replacing an old one. Throws Failure.
  virtual void Write(const std::string& fileName, const SavedTrap& trap) = 0;
};

}  // namespace sentrel
