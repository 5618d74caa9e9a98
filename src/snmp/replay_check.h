#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <unordered_set>

namespace sentrel {

/// In octets (RFC 3411, section 5).
inline constexpr std::size_t kLongestEngineId = 32;

/// What an authenticated message says of its place in time (RFC 3414, section 2.2): the boots and
/// the time, in seconds, of the engine that is authoritative for it.
struct EngineMoment {
  std::uint32_t boots;
  std::uint32_t time;
};

enum class Freshness {
  kFresh,
  /// The very message was taken before.
  kRepeated,
  /// Older than what the engine has told since, so that it may have been recorded.
  kStale,
};

/// Tells fresh authenticated messages from recorded ones (RFC 3414, section 3.2, step 7), and keeps
/// what that takes: the newest moment of every engine, and the digests of the last minutes.
///
/// Stricter than the standard in one point, laxer in another. The same message does not pass twice
/// within the time window. And a moment later than any that the engine has told is always fresh,
/// however far this machine's clock has run ahead: the traps of a device with a slow clock, or of a
/// virtual machine that was suspended, would otherwise be refused for good.
///
/// Invariant: of each engine, every message that was taken with a time from `floor` on is among the
/// digests, and none older than `floor` passes. So memory is bounded and still nothing repeats.
///
/// Safe among threads: the receiver asks and takes, another thread writes the moments to a file.
class ReplayCheck {
 public:
  using Clock = std::chrono::steady_clock;
  /// The bytes of an engine ID.
  using EngineId = std::string;

  /// RFC 3414, section 2.2.3, and the last value of the boots, with which nothing is fresh.
  static constexpr std::uint32_t kTimeWindow = 150;
  static constexpr std::uint32_t kMostBoots = 2'147'483'647;
  /// Digests that are kept at most.
  static constexpr std::size_t kMostDigests = 1 << 18;

  /// `ownEngine` is this program's, whose time window the SNMP library checks. Of the engines that
  /// an earlier run heard only later moments are fresh.
  ReplayCheck(EngineId ownEngine, const std::map<EngineId, EngineMoment>& heardBefore);

  /// `digest` is msgAuthenticationParameters, as it came.
  Freshness Judge(const EngineId& engine, EngineMoment moment, std::span<const std::uint8_t> digest,
                  Clock::time_point now) const;
  /// The fresh message has been taken.
  void Take(const EngineId& engine, EngineMoment moment, std::span<const std::uint8_t> digest,
            Clock::time_point now);

  /// Forgets what the engine has told: its next message is fresh, whatever moment it tells.
  void Forget(const EngineId& engine);

  /// The newest moment that the engine has told; nothing where it is not known.
  std::optional<EngineMoment> NewestOf(const EngineId& engine) const;
  /// The newest moment of every engine but this program's own.
  std::map<EngineId, EngineMoment> Newest() const;

 private:
  struct Engine {
    EngineMoment newest;
    Clock::time_point toldAt;
    /// Of the same boots as `newest`; 64 bits, as it may be one more than a time can be.
    std::uint64_t floor = 0;
  };
  struct Taken {
    EngineId engine;
    EngineMoment moment;
    std::uint64_t digest;
    Clock::time_point at;
  };

  void DropOldDigests(Clock::time_point now);

  const EngineId ownEngine_;
  mutable std::mutex mutex_;
  std::map<EngineId, Engine> engines_;
  /// In the order of arrival.
  std::deque<Taken> taken_;
  std::unordered_set<std::uint64_t> digests_;
};

}  // namespace sentrel
