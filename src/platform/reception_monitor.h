#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "platform/version3_user_store.h"

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

/// A moment's copy of the counters.
struct ListenerCounters {
  /// How many datagrams ended so, by Outcome.
  std::array<std::uint64_t, kOutcomes> outcomes{};
  std::uint64_t answeredInforms = 0;
  /// Datagrams that the system dropped before they could be read.
  std::uint64_t systemDrops = 0;

  std::uint64_t Of(Outcome outcome) const { return outcomes[static_cast<std::size_t>(outcome)]; }
  std::uint64_t Received() const {
    return std::accumulate(outcomes.begin(), outcomes.end(), std::uint64_t{0});
  }
  std::uint64_t Dropped() const { return Received() - Of(Outcome::kAccepted); }
};

/// What could be read of a datagram that reached the socket. What could not is empty.
struct SeenDatagram {
  std::chrono::system_clock::time_point arrival;
  /// Dotted quad, or the text form of an IPv6 address.
  std::string sender;
  Outcome outcome = Outcome::kNotSnmp;
  /// What the listener knows beyond the outcome, in a sentence for people that names no key and no
  /// passphrase: "The digest has 24 octets, as SHA-256 makes it; the user's key is for SHA-1."
  std::string hint;
  /// 1, 2 (for 2c) or 3.
  std::optional<int> version;
  /// Of version 3.
  std::optional<SecurityLevel> level;
  /// The community of versions 1 and 2c, the user's name of version 3.
  std::string community;
  /// The engine that is authoritative for a version 3 message, its bytes.
  std::string engine;
  /// The OID of the notification (RFC 3584, section 3.1, for version 1), dotted decimal.
  std::string notification;
};

/// How the listener listens.
struct ListeningFacts {
  /// 0 while it does not listen; all else is of no meaning then.
  std::uint16_t port = 0;
  /// Whether it hears IPv6 too, and not IPv4 alone.
  bool hasIpv6 = false;
  /// Small traps for which the socket's buffer has room.
  std::size_t bufferedTraps = 0;
  /// This program's own engine (RFC 3411, section 5), and how often it has started: for senders of
  /// informs. Empty until it is known, a moment after the start.
  std::string engine;
  std::uint32_t engineBoots = 0;
  /// How long it has been running since.
  std::chrono::seconds engineTime{0};
};

/// What the listener knows of its own work. A trap that it has taken and that pause or a filter
/// refuses later is none of its business. Called on the event loop; never throws.
class ReceptionMonitor {
 public:
  /// Datagrams that Refused() keeps.
  static constexpr std::size_t kMostRefused = 500;

  struct LastDatagram {
    std::chrono::system_clock::time_point arrival;
    std::string sender;
  };

  virtual ~ReceptionMonitor() = default;
  virtual ListeningFacts Listening() const = 0;
  /// Since the program started.
  virtual ListenerCounters Counters() const = 0;
  /// The last datagram that ended so; nothing where none has.
  virtual std::optional<LastDatagram> LastOf(Outcome outcome) const = 0;
  /// The last datagrams that ended otherwise than accepted, the newest first.
  virtual std::vector<SeenDatagram> Refused() const = 0;

  /// While watching, every datagram is kept for TakeWatched, as it reaches the socket; where they
  /// are not taken in time, the newest are dropped.
  virtual void SetWatching(bool watching) = 0;
  /// In the order of arrival; none of them comes twice.
  virtual std::vector<SeenDatagram> TakeWatched() = 0;
  /// How many have been dropped since SetWatching was called last.
  virtual std::uint64_t MissedByWatch() const = 0;
};

}  // namespace sentrel
