#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <vector>

#include "platform/trap.h"

namespace sentrel {

/// Memory that a trap occupies, in bytes, to within a few per cent.
std::size_t MemoryOf(const Trap& trap);

/// Bounds of a TrapQueue. A trap that would exceed either is refused.
struct QueueLimits {
  std::size_t traps = 262'144;
  std::size_t bytes = std::size_t{512} << 20;
};

/// The traps between the receiver thread, which pushes, and the event loop, which takes. Every
/// call may come from any thread.
class TrapQueue {
 public:
  enum class Pushed { kRefused, kFirst, kBehindOthers };

  explicit TrapQueue(QueueLimits limits) : limits_(limits) {}

  /// Appends the trap, moving from it; leaves it alone when it is refused.
  Pushed Push(Trap& trap);

  /// Replaces `taken` by the oldest traps, at most `most` of them.
  void Take(std::size_t most, std::vector<Trap>& taken);

  std::size_t Size() const;
  void Clear();

 private:
  struct Entry {
    Trap trap;
    std::size_t bytes;
  };

  const QueueLimits limits_;
  mutable std::mutex mutex_;
  std::deque<Entry> entries_;
  std::size_t bytes_ = 0;
};

}  // namespace sentrel
