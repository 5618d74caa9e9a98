#pragma once

#include <cstdint>
#include <vector>

#include "mib/module.h"

namespace sentrel::mib {

/// Marks of definitions whose node or type is not known yet, or is being looked for.
inline constexpr std::uint32_t kUnset = 0xFFFFFFFE;
inline constexpr std::uint32_t kBusy = 0xFFFFFFFD;

/// How long a chain of references may be before it counts as endless.
inline constexpr int kLongestChain = 256;

/// A mark for each definition of each module, at first kUnset.
inline std::vector<std::vector<std::uint32_t>> UnsetMarks(const std::vector<Module>& modules) {
  std::vector<std::vector<std::uint32_t>> marks;
  for (const Module& module : modules) marks.emplace_back(module.definitions.size(), kUnset);
  return marks;
}

}  // namespace sentrel::mib
