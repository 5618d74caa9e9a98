#include "reception/self_check.h"

#include <algorithm>

#include "common/failure.h"
#include "reception/reasons.h"

namespace sentrel {
namespace {

constexpr const char* kSysUpTime = "1.3.6.1.2.1.1.3.0";
constexpr const char* kTrapOid = "1.3.6.1.6.3.1.1.4.1.0";
constexpr const char* kColdStart = "1.3.6.1.6.3.1.1.5.1";
constexpr std::int16_t kTimeTicks = 67;
constexpr std::int16_t kObjectIdentifier = 6;

std::optional<std::size_t> CountOf(const Version3UserStore& users) {
  std::optional<std::size_t> count;
  Attempt([&] { count = users.Users().size(); });
  return count;
}

std::uint64_t RefusedVersion3(const ListenerCounters& counters) {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < kOutcomes; ++i) {
    const auto outcome = static_cast<Outcome>(i);
    if (IsAboutUsers(outcome)) sum += counters.Of(outcome);
  }
  return sum;
}

}  // namespace

void SelfCheck::Start(Clock::time_point now) {
  start_ = now;
  facts_ = {};
  facts_.lostBefore = network_.Lost();
  if (!firewall_.valid()) firewall_ = network_.AskFirewall();
  watch_.Start(now);
  SendTestTrap();
  Look(now);
}

void SelfCheck::SendTestTrap() {
  const std::int16_t result = snmp_.SendTrap("127.0.0.1", kCommunity, {kSysUpTime, kTrapOid},
                                             {"0", kColdStart}, {kTimeTicks, kObjectIdentifier});
  if (result != 0) facts_.testTrap.failure = snmp_.StatusText();
}

void SelfCheck::LookForTestTrap(Clock::time_point now) {
  TestTrapFacts& trap = facts_.testTrap;
  if (trap.hasArrived) return;
  const auto& seen = watch_.Seen();
  const auto found = std::ranges::find(
      seen, kCommunity, [](const WatchedDatagram& datagram) { return datagram.seen.community; });
  trap.hasArrived = found != seen.end();
  if (trap.hasArrived) trap.verdict = found->verdict;
  trap.isOverdue = now - *start_ >= kMostForTestTrap;
}

void SelfCheck::Look(Clock::time_point now) {
  if (!start_) return;
  facts_.listening = monitor_.Listening();
  facts_.lostNow = network_.Lost();
  facts_.users = CountOf(users_);
  facts_.refusedVersion3 = RefusedVersion3(monitor_.Counters());
  LookForTestTrap(now);
  const bool isRead =
      firewall_.valid() && firewall_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
  if (isRead) facts_.firewall = firewall_.get();
}

std::vector<CheckStep> SelfCheck::Steps() const {
  return start_ ? CheckSteps(facts_, settings_) : std::vector<CheckStep>();
}

}  // namespace sentrel
