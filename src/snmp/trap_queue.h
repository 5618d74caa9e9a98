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

/// The traps between the receiver thread, which pushes, and the event loop, which takes and hands
/// the used ones back: in a storm no trap costs an allocation. Every call may come from any thread.
class TrapQueue {
 public:
  enum class Pushed { kRefused, kFirst, kBehindOthers };

  explicit TrapQueue(QueueLimits limits) : limits_(limits) {}

  /// Appends the trap and leaves another in its place, of any content, whose memory is to be used
  /// again; leaves it alone when it is refused.
  Pushed Push(Trap& trap);

  /// Replaces `taken` by the oldest traps, at most `most` of them.
  void Take(std::size_t most, std::vector<Trap>& taken);

  /// Takes back traps that are done with, for the memory in them, and empties the list.
  void Recycle(std::vector<Trap>& used);

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
  std::vector<Trap> spare_;
  std::size_t bytes_ = 0;
};

}  // namespace sentrel
