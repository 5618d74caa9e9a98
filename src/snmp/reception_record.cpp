#include "snmp/reception_record.h"

#include <utility>

#include "snmp/datagram_description.h"

namespace sentrel {

void ReceptionRecord::NoteEngine(std::string engine, std::uint32_t boots) {
  const std::lock_guard lock(mutex_);
  engine_ = std::move(engine);
  engineBoots_ = boots;
  engineStart_ = std::chrono::steady_clock::now();
}

void ReceptionRecord::TellEngine(ListeningFacts& facts) const {
  const std::lock_guard lock(mutex_);
  facts.engine = engine_;
  facts.engineBoots = engineBoots_;
  facts.engineTime = std::chrono::duration_cast<std::chrono::seconds>(
      std::chrono::steady_clock::now() - engineStart_);
}

void ReceptionRecord::Note(const Datagram& datagram, Outcome outcome,
                           const std::function<std::string()>& hint,
                           const Version3Message* decrypted) {
  const bool isWatched = MayWatch();
  const bool isRefused = outcome != Outcome::kAccepted && (MayDescribe() || isWatched);
  std::shared_ptr<const SeenDatagram> refused;
  SeenDatagram watched;
  if (isWatched || isRefused) watched = DescribeDatagram(datagram, outcome, hint(), decrypted);
  if (isRefused) refused = std::make_shared<const SeenDatagram>(watched);
  const std::lock_guard lock(mutex_);
  last_[static_cast<std::size_t>(outcome)] = {std::chrono::system_clock::now(), datagram.peer};
  if (isWatched && watching_) watched_.push_back(std::move(watched));
  if (!isRefused) return;
  refused_.push_back(std::move(refused));
  if (refused_.size() > ReceptionMonitor::kMostRefused) refused_.pop_front();
}

bool ReceptionRecord::MayWatch() {
  if (!watching_.load(std::memory_order_relaxed)) return false;
  const std::lock_guard lock(mutex_);
  if (watched_.size() < kMostWatched) return true;
  ++missedByWatch_;
  return false;
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
  std::vector<std::shared_ptr<const SeenDatagram>> kept;
  kept.reserve(ReceptionMonitor::kMostRefused);
  {
    const std::lock_guard lock(mutex_);
    kept.assign(refused_.rbegin(), refused_.rend());
  }
  std::vector<SeenDatagram> newestFirst;
  newestFirst.reserve(kept.size());
  for (const auto& seen : kept) newestFirst.push_back(*seen);
  return newestFirst;
}

void ReceptionRecord::SetWatching(bool watching) {
  std::vector<SeenDatagram> forgotten;
  const std::lock_guard lock(mutex_);
  watching_ = watching;
  missedByWatch_ = 0;
  watched_.swap(forgotten);
}

std::vector<SeenDatagram> ReceptionRecord::TakeWatched() {
  const std::lock_guard lock(mutex_);
  return std::exchange(watched_, {});
}

std::uint64_t ReceptionRecord::MissedByWatch() const {
  const std::lock_guard lock(mutex_);
  return missedByWatch_;
}

}  // namespace sentrel
