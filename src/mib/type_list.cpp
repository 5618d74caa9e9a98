#include "mib/type_list.h"

#include <algorithm>

#include "mib/hash.h"

namespace sentrel::mib {
namespace {

std::uint64_t HashOf(const ResolvedType& type) {
  std::uint64_t hash = Hash(type.hint, static_cast<std::uint64_t>(type.base));
  hash = Hash(type.units, Hash(type.module, Hash(type.name, hash)));
  for (std::uint32_t i = 0; i < type.valueCount; ++i) {
    hash = Hash(type.values[i].label, hash + static_cast<std::uint32_t>(type.values[i].value));
  }
  return hash;
}

bool AreEqual(const ResolvedType& a, const ResolvedType& b) {
  return a.base == b.base && a.hint == b.hint && a.units == b.units && a.name == b.name &&
         a.module == b.module &&
         std::equal(a.values, a.values + a.valueCount, b.values, b.values + b.valueCount,
                    [](const NamedValue& x, const NamedValue& y) {
                      return x.value == y.value && x.label == y.label;
                    });
}

}  // namespace

std::uint32_t TypeList::Add(const ResolvedType& type) {
  const std::uint64_t hash = HashOf(type);
  const auto [begin, end] = byHash_.equal_range(hash);
  const auto same = std::find_if(
      begin, end, [&](const auto& known) { return AreEqual(types_[known.second], type); });
  if (same != end) return same->second;
  const auto index = static_cast<std::uint32_t>(types_.size());
  types_.push_back(type);
  byHash_.emplace(hash, index);
  return index;
}

}  // namespace sentrel::mib
