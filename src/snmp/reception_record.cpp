#include "snmp/reception_record.h"

#include <utility>

#include "snmp/datagram_description.h"

namespace sentrel {

void ReceptionRecord::Note(const Datagram& datagram, Outcome outcome, std::string_view hint,
                           const Version3Message* decrypted) {
  const bool isWatching = watching_.load(std::memory_order_relaxed);
  const bool isDescribed = isWatching || MayDescribe();
  SeenDatagram seen;
  if (isDescribed) seen = DescribeDatagram(datagram, outcome, hint, decrypted);
  const std::lock_guard lock(mutex_);
  last_[static_cast<std::size_t>(outcome)] = {std::chrono::system_clock::now(), datagram.peer};
  if (!isDescribed) return;
  if (isWatching && watched_.size() < kMostWatched) watched_.push_back(seen);
  if (outcome == Outcome::kAccepted) return;
  if (refused_.size() == ReceptionMonitor::kMostRefused) refused_.pop_front();
  refused_.push_back(std::move(seen));
}

void ReceptionRecord::NoteAccepted(const Datagram& datagram) {
  const std::lock_guard lock(mutex_);
  last_[static_cast<std::size_t>(Outcome::kAccepted)] = {std::chrono::system_clock::now(),
                                                         datagram.peer};
}

bool ReceptionRecord::MayDescribe() {
  const auto now = CoarseClock::now();
  if (now - second_ >= std::chrono::seconds(1)) {
    second_ = now;
    described_ = 0;
  }
  return described_++ < kMostDetailsInSecond;
}

std::optional<ReceptionMonitor::LastDatagram> ReceptionRecord::LastOf(Outcome outcome) const {
  const std::lock_guard lock(mutex_);
  const Last& last = last_[static_cast<std::size_t>(outcome)];
  if (!last.peer) return std::nullopt;
  ReceptionMonitor::LastDatagram told{.arrival = last.arrival, .sender = {}};
  AddressText(*last.peer, told.sender);
  return told;
}

std::vector<SeenDatagram> ReceptionRecord::Refused() const {
  const std::lock_guard lock(mutex_);
  return {refused_.rbegin(), refused_.rend()};
}

void ReceptionRecord::SetWatching(bool watching) {
  const std::lock_guard lock(mutex_);
  watching_ = watching;
  watched_.clear();
}

std::vector<SeenDatagram> ReceptionRecord::TakeWatched() {
  const std::lock_guard lock(mutex_);
  return std::exchange(watched_, {});
}

}  // namespace sentrel
