#include "mib/base_nodes.h"

namespace sentrel::mib {
namespace {

std::uint64_t KeyOf(const Target& target) {
  return std::uint64_t{target.module} << 32 | target.definition;
}

}  // namespace

std::uint32_t BaseNodes::Take(const Target& target) {
  const auto [known, isNew] = taken_.emplace(KeyOf(target), kNothing);
  if (!isNew) return known->second;
  const Image& image = *base_.Images()[target.module];
  const auto oid = image.OidOf(image.EntryAt(target.definition).node);
  if (oid.empty()) return kNothing;
  std::uint32_t node = OidTree::kRoot;
  for (const std::uint32_t number : oid) node = tree_.Child(node, number);
  return known->second = node;
}

std::uint32_t BaseNodes::At(const Target& target) const {
  const auto known = taken_.find(KeyOf(target));
  return known == taken_.end() ? kNothing : known->second;
}

}  // namespace sentrel::mib
