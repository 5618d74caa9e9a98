#include "trap/trap.h"

namespace sentrel {

bool Trap::operator==(const Trap& other) const {
  return SourceAddress == other.SourceAddress && Community == other.Community &&
         OIDs == other.OIDs && DataTypes == other.DataTypes && Values == other.Values;
}

std::size_t MemoryOf(const Trap& trap) {
  constexpr std::size_t kAllocation = 16;
  std::size_t bytes = sizeof trap + trap.SourceAddress.capacity() + trap.Community.capacity() +
                      trap.DataTypes.capacity() * sizeof(int) +
                      trap.HexOctets.capacity() * sizeof(std::size_t);
  for (const std::vector<std::string>* texts : {&trap.OIDs, &trap.Values}) {
    for (const std::string& text : *texts) bytes += sizeof text + text.capacity() + kAllocation;
  }
  return bytes;
}

}  // namespace sentrel
