#pragma once

#include <chrono>
#include <future>
#include <vector>

#include "platform/network_facts.h"
#include "platform/snmp.h"
#include "platform/version3_user_store.h"
#include "reception/check_steps.h"
#include "reception/watch.h"

namespace sentrel {

/// "I see nothing": looks at each step of the way that a trap takes. It sends one trap to this
/// machine, which passes pause and filters as any other, and turns Watch on, so that a person can
/// go on by sending one from the device. Used on the event loop only; nothing here waits.
class SelfCheck {
 public:
  using Clock = Watch::Clock;
  static constexpr std::chrono::seconds kMostForTestTrap{3};
  /// The community of the test trap, by which it is known again.
  static constexpr const char* kCommunity = "sentrel-check";

  /// All must outlive this.
  SelfCheck(ReceptionMonitor& monitor, const NetworkFacts& network, const Settings& settings,
            const Version3UserStore& users, SNMP& snmp, Watch& watch)
      : monitor_(monitor),
        network_(network),
        settings_(settings),
        users_(users),
        snmp_(snmp),
        watch_(watch) {}

  /// Begins, or begins anew.
  void Start(Clock::time_point now);
  /// Takes what has come since the last call. Watch has looked before.
  void Look(Clock::time_point now);
  /// As they are now: losses are told from Start on. Empty before the first Start.
  std::vector<CheckStep> Steps() const;

 private:
  void SendTestTrap();
  void LookForTestTrap(Clock::time_point now);

  ReceptionMonitor& monitor_;
  const NetworkFacts& network_;
  const Settings& settings_;
  const Version3UserStore& users_;
  SNMP& snmp_;
  Watch& watch_;
  std::optional<Clock::time_point> start_;
  CheckFacts facts_;
  std::future<FirewallVerdict> firewall_;
};

}  // namespace sentrel
