#pragma once

#include <unordered_map>
#include <vector>

#include "mib/catalog.h"

namespace sentrel::mib {

/// Adds resolved types to a list that it does not own: equal ones once, none moved or removed. One
/// thread at a time; the list must outlive it, and nothing else may add to the list meanwhile.
class TypeList {
 public:
  explicit TypeList(BigVector<ResolvedType>& types) : types_(types) {}
  /// The position of a type in the list. The named values are referred to, not copied.
  std::uint32_t Add(const ResolvedType& type);
  const ResolvedType& At(std::uint32_t position) const { return types_[position]; }

 private:
  BigVector<ResolvedType>& types_;
  std::unordered_multimap<std::uint64_t, std::uint32_t> byHash_;
};

}  // namespace sentrel::mib
