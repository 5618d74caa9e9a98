#include "snmp/trap_batch.h"

#include <string>

namespace sentrel {
namespace {

/// Text up to this length lies inside the string itself.
const std::size_t kInline = std::string().capacity();
constexpr std::size_t kAllocation = 16;

std::size_t HeapOf(const std::string& text) {
  return text.capacity() > kInline ? text.capacity() + kAllocation : 0;
}

std::size_t HeapOf(const std::vector<std::string>& texts) {
  std::size_t bytes = texts.capacity() * sizeof(std::string) + kAllocation;
  for (const std::string& text : texts) bytes += HeapOf(text);
  return bytes;
}

}  // namespace

std::size_t MemoryOf(const ArrivedTrap& trap) {
  const Trap& head = trap.head;
  return sizeof trap + HeapOf(head.SourceAddress) + HeapOf(head.Community) + HeapOf(head.OIDs) +
         HeapOf(head.Values) + head.DataTypes.capacity() * sizeof(int) + kAllocation +
         HeapOf(trap.encoded);
}

}  // namespace sentrel
