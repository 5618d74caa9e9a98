#pragma once

#include <array>
#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/reception_monitor.h"

namespace sentrel {

/// "Wrong passphrase or algorithm": what became of a datagram, as a person would say it.
std::string_view ReasonText(Outcome outcome);
/// What to do about datagrams that end so, in a sentence or two; empty where nothing is wrong.
std::string_view RemedyText(Outcome outcome);

/// Whether the way out is among the users of version 3.
inline bool IsAboutUsers(Outcome outcome) {
  return outcome >= Outcome::kUnknownEngine && outcome <= Outcome::kNotInTimeWindow;
}

/// A line of the table of counts.
struct Reason {
  std::string text;
  std::uint64_t count = 0;
  /// Datagrams a second, over the last seconds.
  double rate = 0;
  std::optional<ReceptionMonitor::LastDatagram> last;
  std::string remedy;
};

/// What the listener has counted since the program started, with rates over kRateWindow, as far as
/// Sample was called meanwhile. Used on the event loop only.
class Reasons {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::seconds kRateWindow{10};

  /// Must outlive this.
  explicit Reasons(const ReceptionMonitor& monitor) : monitor_(monitor) {}

  /// To be called about once a second; more often costs nothing and tells nothing.
  void Sample(Clock::time_point now);
  /// Accepted first, then informs answered, then each way of being refused, then what the system
  /// dropped. Those that have never happened too.
  std::vector<Reason> List() const;

 private:
  struct Moment {
    Clock::time_point at;
    ListenerCounters counters;
  };
  /// Of what the function takes from the counters.
  double Rate(const std::function<std::uint64_t(const ListenerCounters&)>& count) const;

  const ReceptionMonitor& monitor_;
  /// The oldest first; at most those of kRateWindow.
  std::deque<Moment> moments_;
};

}  // namespace sentrel
