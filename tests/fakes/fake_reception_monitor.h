#pragma once

#include <map>
#include <utility>

#include "platform/reception_monitor.h"

namespace sentrel {

/// A listener that has seen what a test says.
class FakeReceptionMonitor : public ReceptionMonitor {
 public:
  ListeningFacts Listening() const override { return listening; }
  ListenerCounters Counters() const override { return counters; }
  std::optional<LastDatagram> LastOf(Outcome outcome) const override {
    const auto found = last.find(outcome);
    return found == last.end() ? std::nullopt : std::optional(found->second);
  }
  std::vector<SeenDatagram> Refused() const override { return refused; }
  void SetWatching(bool on) override { watching = on; }
  std::vector<SeenDatagram> TakeWatched() override { return std::exchange(watched, {}); }
  std::uint64_t MissedByWatch() const override { return missed; }

  void Count(Outcome outcome, std::uint64_t more) {
    counters.outcomes[static_cast<std::size_t>(outcome)] += more;
  }

  ListeningFacts listening;
  ListenerCounters counters;
  std::map<Outcome, LastDatagram> last;
  std::vector<SeenDatagram> refused;
  bool watching = false;
  std::vector<SeenDatagram> watched;
  std::uint64_t missed = 0;
};

}  // namespace sentrel
