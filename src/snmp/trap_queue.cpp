#include "snmp/trap_queue.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace sentrel {
namespace {

/// Text up to this length lies inside the string itself.
const std::size_t kInline = std::string().capacity();
constexpr std::size_t kAllocation = 16;
/// Traps that wait to be used again: as many as arrive in some tens of milliseconds of a storm.
constexpr std::size_t kMostSpare = 2'048;
constexpr std::size_t kLargestSpare = 4'096;  // bytes

std::size_t HeapOf(const std::string& text) {
  return text.capacity() > kInline ? text.capacity() + kAllocation : 0;
}

std::size_t HeapOf(const std::vector<std::string>& texts) {
  std::size_t bytes = texts.capacity() * sizeof(std::string) + kAllocation;
  for (const std::string& text : texts) bytes += HeapOf(text);
  return bytes;
}

}  // namespace

std::size_t MemoryOf(const Trap& trap) {
  return sizeof trap + HeapOf(trap.SourceAddress) + HeapOf(trap.Community) + HeapOf(trap.OIDs) +
         HeapOf(trap.Values) + trap.DataTypes.capacity() * sizeof(int) + kAllocation;
}

TrapQueue::Pushed TrapQueue::Push(Trap& trap) {
  const std::size_t bytes = MemoryOf(trap);
  const std::lock_guard lock(mutex_);
  if (entries_.size() >= limits_.traps || bytes > limits_.bytes - bytes_) return Pushed::kRefused;
  const bool first = entries_.empty();
  entries_.push_back({std::move(trap), bytes});
  bytes_ += bytes;
  if (!spare_.empty()) {
    trap = std::move(spare_.back());
    spare_.pop_back();
  }
  return first ? Pushed::kFirst : Pushed::kBehindOthers;
}

void TrapQueue::Take(std::size_t most, std::vector<Trap>& taken) {
  taken.clear();
  const std::lock_guard lock(mutex_);
  const std::size_t count = std::min(most, entries_.size());
  for (std::size_t i = 0; i < count; ++i) {
    bytes_ -= entries_.front().bytes;
    taken.push_back(std::move(entries_.front().trap));
    entries_.pop_front();
  }
}

void TrapQueue::Recycle(std::vector<Trap>& used) {
  std::erase_if(used, [](const Trap& trap) { return MemoryOf(trap) > kLargestSpare; });
  const std::lock_guard lock(mutex_);
  const std::size_t room = kMostSpare - std::min(kMostSpare, spare_.size());
  if (used.size() > room) used.resize(room);
  std::move(used.begin(), used.end(), std::back_inserter(spare_));
  used.clear();
}

std::size_t TrapQueue::Size() const {
  const std::lock_guard lock(mutex_);
  return entries_.size();
}

void TrapQueue::Clear() {
  const std::lock_guard lock(mutex_);
  entries_.clear();
  bytes_ = 0;
}

}  // namespace sentrel
