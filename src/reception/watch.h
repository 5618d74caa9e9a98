#pragma once

#include <chrono>
#include <deque>
#include <optional>
#include <string>

#include "platform/oid_object.h"
#include "platform/reception_monitor.h"
#include "settings/settings.h"

namespace sentrel {

/// Where a person changes what keeps a datagram out.
enum class Cure { kNone, kDeviceFilter, kCommunityFilter, kUsers };

/// A datagram that was seen while watching, in words.
struct WatchedDatagram {
  SeenDatagram seen;
  /// The name of the notification where the MIB database knows one.
  std::string notification;
  /// "shown", or what stands in its way: "no device filter fits 10.1.2.3".
  std::string verdict;
  Cure cure = Cure::kNone;
};

/// Shows what reaches the socket for as long as someone wants to see it, kLongest at most, and what
/// pause and the filters say of it. It asks the options and the lists, not the gate, so that what
/// the gate refuses still leaves no trace anywhere but here. Used on the event loop only.
class Watch {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::minutes kLongest{10};
  static constexpr std::size_t kMostKept = 1'000;

  /// All must outlive this.
  Watch(ReceptionMonitor& monitor, const Settings& settings, MibLibrary& mibs)
      : monitor_(monitor), settings_(settings), mibs_(mibs) {}
  ~Watch() { Stop(); }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  /// Forgets what was seen before.
  void Start(Clock::time_point now);
  void Stop();
  bool IsOn() const { return end_.has_value(); }
  /// How long it will go on; zero while it is off.
  std::chrono::seconds Left(Clock::time_point now) const;

  /// Takes what has come since the last call, and ends when the time has come.
  void Look(Clock::time_point now);
  /// The oldest first, the last kMostKept of them. Kept when it has ended.
  const std::deque<WatchedDatagram>& Seen() const { return seen_; }
  /// How many were seen before those.
  std::size_t Forgotten() const { return forgotten_; }
  /// How many came too fast to be seen; kept when it has ended.
  std::uint64_t Missed() const { return missed_; }

 private:
  WatchedDatagram Judge(SeenDatagram seen) const;
  std::string NameOf(const std::string& oid) const;

  ReceptionMonitor& monitor_;
  const Settings& settings_;
  MibLibrary& mibs_;
  std::optional<Clock::time_point> end_;
  std::deque<WatchedDatagram> seen_;
  std::size_t forgotten_ = 0;
  std::uint64_t missed_ = 0;
};

}  // namespace sentrel
