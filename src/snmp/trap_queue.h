#pragma once

#include <atomic>
#include <cstddef>
#include <deque>
#include <mutex>
#include <vector>

#include "snmp/trap_batch.h"

namespace sentrel {

/// Bounds of a TrapQueue. A trap that would exceed either is refused.
struct QueueLimits {
  std::size_t traps = 262'144;
  std::size_t bytes = std::size_t{512} << 20;
};

/// The traps between the receiver thread, which pushes, and the event loop, which takes. They go
/// over by the batch, and emptied batches go back: in a storm a trap costs neither a lock nor an
/// allocation.
///
/// Invariant: what is pushed is counted against the limits at once and until it is taken; a batch
/// is in `published_`, in `spare_`, or with one of the two threads.
class TrapQueue {
 public:
  explicit TrapQueue(QueueLimits limits) : limits_(limits) {}

  /// Appends the trap and leaves another in its place, of any content, whose memory is to be used
  /// again; or leaves it alone and returns false where it is refused. For the receiver thread.
  bool Push(ArrivedTrap& trap);
  /// Lets Take have what was pushed. Returns whether there was nothing to take before, and is now.
  /// For the receiver thread.
  bool Publish();

  /// Takes the batch back for its memory, and replaces it by the oldest one; by an empty one where
  /// none waits. For the event loop.
  void Take(TrapBatch& batch);
  /// Drops what was published. For the event loop.
  void Clear();

  /// Number of traps published and not taken. For any thread.
  std::size_t Size() const { return traps_; }

 private:
  void Forget(const TrapBatch& batch);

  const QueueLimits limits_;
  /// The receiver thread's own.
  TrapBatch pushed_;

  std::mutex mutex_;
  /// Of the published ones; written under the lock.
  std::atomic<std::size_t> traps_ = 0;
  std::atomic<std::size_t> bytes_ = 0;
  std::deque<TrapBatch> published_;
  std::vector<TrapBatch> spare_;
};

}  // namespace sentrel
