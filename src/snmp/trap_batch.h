#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "trap/arrived_trap.h"

namespace sentrel {

/// Traps that travel together. Cleared, it keeps their memory for the next ones. It changes
/// threads, but belongs to one at a time.
///
/// Invariant: of `traps_` the first `count_` are in the batch; the others are memory to be used
/// again.
class TrapBatch {
 public:
  std::size_t Size() const { return count_; }
  /// Memory of the traps.
  std::size_t Bytes() const { return bytes_; }
  const ArrivedTrap& operator[](std::size_t index) const { return traps_[index]; }

  /// Appends the trap and leaves another in its place, of any content, whose memory is to be used
  /// again.
  void Add(ArrivedTrap& trap) {
    bytes_ += trap.Memory();
    if (count_ == traps_.size()) traps_.emplace_back();
    std::swap(traps_[count_++], trap);
  }

  void Clear() { count_ = bytes_ = 0; }

 private:
  std::vector<ArrivedTrap> traps_;
  std::size_t count_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace sentrel
