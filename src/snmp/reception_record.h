#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "common/coarse_clock.h"
#include "platform/reception_monitor.h"
#include "snmp/datagram.h"
#include "snmp/version3_guard.h"

namespace sentrel {

/// Remembers datagrams that were refused, and while watching all others too, in memory alone. The
/// receiver thread writes, the event loop reads; neither holds the lock while it reads or copies
/// texts. A datagram that is accepted while nobody watches costs one look at a flag. A flood is
/// remembered in samples: kMostDetailsInSecond refused ones a second, and while watching
/// kMostWatched between two calls of TakeWatched, are read in detail.
class ReceptionRecord {
 public:
  static constexpr int kMostDetailsInSecond = 1'000;
  static constexpr std::size_t kMostWatched = 5'000;

  /// The engine of this run is known now.
  void NoteEngine(std::string engine, std::uint32_t boots);
  /// Whether Note wants to hear of a datagram.
  bool Wants(Outcome outcome) const {
    return outcome != Outcome::kAccepted || watching_.load(std::memory_order_relaxed);
  }
  /// For the receiver thread, as all below it until TellEngine, and NoteEngine. One datagram of a
  /// batch says enough of when the last was accepted.
  void NoteAccepted(const Datagram& datagram);
  /// The hint is asked for where the datagram is read in detail.
  void Note(const Datagram& datagram, Outcome outcome, const std::function<std::string()>& hint,
            const Version3Message* decrypted);

  /// Puts in what NoteEngine has told.
  void TellEngine(ListeningFacts& facts) const;
  std::optional<ReceptionMonitor::LastDatagram> LastOf(Outcome outcome) const;
  std::vector<SeenDatagram> Refused() const;
  void SetWatching(bool watching);
  std::vector<SeenDatagram> TakeWatched();
  /// Since SetWatching was called last.
  std::uint64_t MissedByWatch() const;

 private:
  struct Last {
    std::chrono::system_clock::time_point arrival;
    std::optional<Peer> peer;
  };
  /// Whether one more refused datagram may be read in detail in this second.
  bool MayDescribe();
  /// Whether a datagram is to be read for those who watch; counts it as missed if there is no room.
  bool MayWatch();

  std::atomic<bool> watching_ = false;
  // The receiver's.
  CoarseClock::time_point second_;
  int described_ = 0;

  mutable std::mutex mutex_;
  // All of these are guarded by mutex_.
  std::string engine_;
  std::uint32_t engineBoots_ = 0;
  std::chrono::steady_clock::time_point engineStart_;
  std::array<Last, kOutcomes> last_;
  /// The newest comes last.
  std::deque<std::shared_ptr<const SeenDatagram>> refused_;
  std::vector<SeenDatagram> watched_;
  std::uint64_t missedByWatch_ = 0;
};

}  // namespace sentrel
