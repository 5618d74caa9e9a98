#include "snmp/replay_check.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace sentrel {
namespace {

/// As long as a message can be within its time window: it may have come from a window ahead.
constexpr std::chrono::seconds kDigestLife{2 * ReplayCheck::kTimeWindow};

/// Keys make the digest, so its beginning is as good as chance.
std::uint64_t Beginning(std::span<const std::uint8_t> digest) {
  std::uint64_t beginning = 0;
  std::memcpy(&beginning, digest.data(), std::min(digest.size(), sizeof beginning));
  return beginning;
}

bool IsLater(EngineMoment a, EngineMoment b) {
  return a.boots != b.boots ? a.boots > b.boots : a.time > b.time;
}

/// Seconds that the engine's clock is ahead of the moment by now, where both run alike.
std::uint64_t Age(EngineMoment moment, EngineMoment newest, ReplayCheck::Clock::duration since) {
  return newest.time - moment.time +
         std::chrono::duration_cast<std::chrono::seconds>(since).count();
}

}  // namespace

ReplayCheck::ReplayCheck(EngineId ownEngine, const std::map<EngineId, EngineMoment>& heardBefore)
    : ownEngine_(std::move(ownEngine)) {
  for (const auto& [engine, newest] : heardBefore) {
    engines_[engine] = {newest, Clock::now(), newest.time + std::uint64_t{1}};
  }
}

Freshness ReplayCheck::Judge(const EngineId& engine, EngineMoment moment,
                             std::span<const std::uint8_t> digest, Clock::time_point now) const {
  const std::lock_guard lock(mutex_);
  if (moment.boots >= kMostBoots) return Freshness::kStale;
  const auto known = engines_.find(engine);
  if (known == engines_.end()) return Freshness::kFresh;
  const auto& [newest, toldAt, floor] = known->second;
  if (IsLater(moment, newest)) return Freshness::kFresh;
  if (moment.boots != newest.boots || moment.time < floor) return Freshness::kStale;
  if (engine != ownEngine_ && Age(moment, newest, now - toldAt) > kTimeWindow) {
    return Freshness::kStale;
  }
  return digests_.contains(Beginning(digest)) ? Freshness::kRepeated : Freshness::kFresh;
}

void ReplayCheck::Take(const EngineId& engine, EngineMoment moment,
                       std::span<const std::uint8_t> digest, Clock::time_point now) {
  const std::lock_guard lock(mutex_);
  const auto [known, isNew] = engines_.try_emplace(engine, Engine{moment, now});
  Engine& told = known->second;
  if (!isNew && IsLater(moment, told.newest)) {
    told = {moment, now, moment.boots == told.newest.boots ? told.floor : 0};
  }
  digests_.insert(Beginning(digest));
  taken_.push_back({engine, moment, Beginning(digest), now});
  DropOldDigests(now);
}

void ReplayCheck::Forget(const EngineId& engine) {
  const std::lock_guard lock(mutex_);
  if (engine != ownEngine_) engines_.erase(engine);
}

void ReplayCheck::DropOldDigests(Clock::time_point now) {
  while (now - taken_.front().at > kDigestLife || taken_.size() > kMostDigests) {
    const Taken& oldest = taken_.front();
    const auto engine = engines_.find(oldest.engine);
    if (engine != engines_.end() && engine->second.newest.boots == oldest.moment.boots) {
      engine->second.floor = std::max(engine->second.floor, oldest.moment.time + std::uint64_t{1});
    }
    digests_.erase(oldest.digest);
    taken_.pop_front();
  }
}

std::optional<EngineMoment> ReplayCheck::NewestOf(const EngineId& engine) const {
  const std::lock_guard lock(mutex_);
  const auto found = engines_.find(engine);
  return found == engines_.end() ? std::nullopt : std::optional(found->second.newest);
}

std::map<ReplayCheck::EngineId, EngineMoment> ReplayCheck::Newest() const {
  const std::lock_guard lock(mutex_);
  std::map<EngineId, EngineMoment> newest;
  for (const auto& [id, engine] : engines_) {
    if (id != ownEngine_) newest.emplace(id, engine.newest);
  }
  return newest;
}

}  // namespace sentrel
