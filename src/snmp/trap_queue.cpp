#include "snmp/trap_queue.h"

#include <utility>

namespace sentrel {
namespace {

/// Batches that wait to be used again: as many as arrive in some tens of milliseconds of a storm.
constexpr std::size_t kMostSpare = 32;
constexpr std::size_t kLargestSpare = 256 << 10;  // bytes

}  // namespace

bool TrapQueue::Push(ArrivedTrap& trap) {
  if (traps_ + pushed_.Size() >= limits_.traps) return false;
  if (bytes_ + pushed_.Bytes() + trap.Memory() > limits_.bytes) return false;
  pushed_.Add(trap);
  return true;
}

bool TrapQueue::Publish() {
  if (pushed_.Size() == 0) return false;
  const std::lock_guard lock(mutex_);
  traps_ += pushed_.Size();
  bytes_ += pushed_.Bytes();
  published_.push_back(std::exchange(pushed_, {}));
  if (!spare_.empty()) {
    pushed_ = std::move(spare_.back());
    spare_.pop_back();
  }
  return published_.size() == 1;
}

void TrapQueue::Take(TrapBatch& batch) {
  const bool keep = batch.Bytes() <= kLargestSpare;
  batch.Clear();
  const std::lock_guard lock(mutex_);
  if (keep && spare_.size() < kMostSpare) spare_.push_back(std::exchange(batch, {}));
  if (published_.empty()) return;
  batch = std::move(published_.front());
  published_.pop_front();
  Forget(batch);
}

void TrapQueue::Clear() {
  const std::lock_guard lock(mutex_);
  for (const TrapBatch& batch : published_) Forget(batch);
  published_.clear();
}

void TrapQueue::Forget(const TrapBatch& batch) {
  traps_ -= batch.Size();
  bytes_ -= batch.Bytes();
}

}  // namespace sentrel
