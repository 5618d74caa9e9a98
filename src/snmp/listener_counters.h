#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace sentrel {

/// What became of a datagram.
enum class Outcome : std::size_t {
  kAccepted,
  /// A good notification that found the queue full.
  kQueueFull,
  /// Was taken before: an inform whose answer was lost, or a recording that someone plays back.
  kRepeated,
  /// Does not begin as an SNMP message does.
  kNotSnmp,
  /// Shorter than the length that it declares.
  kTruncated,
  /// Begins as an SNMP message but breaks the encoding rules further on.
  kMalformed,
  kUnsupportedVersion,
  /// Not a notification: a request, a response, a report.
  kUnsupportedPdu,
  /// Version 3 from or for an engine without users. The probe before a version 3 inform is one.
  kUnknownEngine,
  kUnknownUser,
  /// Asks for authentication or privacy that the user has no key for.
  kUnsupportedLevel,
  /// Not authenticated or not encrypted, where the user's keys allow it.
  kLevelTooLow,
  kWrongDigest,
  kNotDecrypted,
  kNotInTimeWindow,
};
inline constexpr std::size_t kOutcomes = static_cast<std::size_t>(Outcome::kNotInTimeWindow) + 1;

/// "wrong digest": for people.
std::string_view OutcomeText(Outcome outcome);

/// A moment's copy of the counters.
struct ListenerCounters {
  /// How many datagrams ended so, by Outcome.
  std::array<std::uint64_t, kOutcomes> outcomes{};
  std::uint64_t answeredInforms = 0;
  /// Datagrams that the system dropped before they could be read.
  std::uint64_t systemDrops = 0;

  std::uint64_t Of(Outcome outcome) const { return outcomes[static_cast<std::size_t>(outcome)]; }
  std::uint64_t Received() const;
  std::uint64_t Dropped() const { return Received() - Of(Outcome::kAccepted); }
};

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
