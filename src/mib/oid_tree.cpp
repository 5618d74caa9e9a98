#include "mib/oid_tree.h"

namespace sentrel::mib {

OidTree::OidTree() : nodes_(1), slots_(1024) {}

std::uint32_t OidTree::Child(std::uint32_t node, std::uint32_t number) {
  const size_t slot = SlotOf(node, number);
  if (slots_[slot] != 0) return slots_[slot];
  const auto child = static_cast<std::uint32_t>(nodes_.size());
  nodes_.push_back({number, node, nodes_[node].depth + 1});
  slots_[slot] = child;
  if (nodes_.size() * 2 > slots_.size()) Resize(slots_.size() * 2);
  return child;
}

void OidTree::Reserve(size_t nodes) {
  nodes_.reserve(nodes);
  size_t slots = slots_.size();
  while (slots < nodes * 2) slots *= 2;
  if (slots > slots_.size()) Resize(slots);
}

size_t OidTree::SlotOf(std::uint32_t node, std::uint32_t number) const {
  const std::uint64_t key = (static_cast<std::uint64_t>(node) << 32) | number;
  const size_t mask = slots_.size() - 1;
  size_t slot = ((key * 0x9E3779B97F4A7C15) >> 32) & mask;
  while (slots_[slot] != 0) {
    const Node& child = nodes_[slots_[slot]];
    if (child.parent == node && child.number == number) break;
    slot = (slot + 1) & mask;
  }
  return slot;
}

void OidTree::Resize(size_t slots) {
  slots_.assign(slots, 0);
  for (std::uint32_t node = 1; node < nodes_.size(); ++node) {
    slots_[SlotOf(nodes_[node].parent, nodes_[node].number)] = node;
  }
}

}  // namespace sentrel::mib
