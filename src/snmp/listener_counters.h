#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/reception_monitor.h"

namespace sentrel {

/// "wrong digest": for people.
std::string_view OutcomeText(Outcome outcome);

/// Counters that the receiver thread alone writes and any thread reads. Each is right by itself; a
/// copy taken while datagrams arrive may not add up.
class SharedCounters {
 public:
  void Count(Outcome outcome) { Add(outcomes_[static_cast<std::size_t>(outcome)], 1); }
  void SetAnsweredInforms(std::uint64_t count) { answeredInforms_.store(count, kOrder); }
  void SetSystemDrops(std::uint64_t count) { systemDrops_.store(count, kOrder); }
  ListenerCounters Read() const;

 private:
  using Counter = std::atomic<std::uint64_t>;
  static constexpr auto kOrder = std::memory_order_relaxed;
  /// One writer: no locked instruction is needed.
  static void Add(Counter& counter, std::uint64_t more) {
    counter.store(counter.load(kOrder) + more, kOrder);
  }

  std::array<Counter, kOutcomes> outcomes_{};
  Counter answeredInforms_ = 0;
  Counter systemDrops_ = 0;
};

}  // namespace sentrel
