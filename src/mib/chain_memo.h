#pragma once

#include <cstdint>
#include <vector>

#include "mib/catalog.h"
#include "mib/module.h"

namespace sentrel::mib {

/// What definitions come to, where one may refer to the next. Each is looked for at most once, and
/// a chain of references that leads back to itself, or is endless, is cut.
class ChainMemo {
 public:
  /// Has room for the definitions of all these modules.
  explicit ChainMemo(const std::vector<Module>& modules) {
    values_.reserve(modules.size());
    for (const Module& module : modules) {
      values_.emplace_back(module.definitions.size(), kUnset);
    }
  }

  /// What definition `d` of module `m` comes to: `find()`, called the first time, or kNothing after
  /// a call of `cut()`. `depth` is the number of references that have led here.
  template <typename Find, typename Cut>
  std::uint32_t Get(std::uint32_t m, std::uint32_t d, int depth, const Find& find, const Cut& cut) {
    std::uint32_t& value = values_[m][d];
    if (value != kUnset && value != kBusy) return value;
    if (value == kBusy || depth > kLongestChain) {
      cut();
      return value = kNothing;
    }
    value = kBusy;
    return value = find();
  }

  /// What Get has found.
  std::uint32_t At(std::uint32_t m, std::uint32_t d) const { return values_[m][d]; }

 private:
  static constexpr std::uint32_t kUnset = 0xFFFFFFFE;
  static constexpr std::uint32_t kBusy = 0xFFFFFFFD;
  static constexpr int kLongestChain = 256;

  /// By module and definition.
  std::vector<std::vector<std::uint32_t>> values_;
};

}  // namespace sentrel::mib
