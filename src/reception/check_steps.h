#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/network_facts.h"
#include "platform/reception_monitor.h"
#include "settings/settings.h"

namespace sentrel {

enum class CheckVerdict { kGood, kLookHere, kCannotTell, kWaiting };

/// One step of the check why no trap is seen.
struct CheckStep {
  std::string name;
  CheckVerdict verdict = CheckVerdict::kGood;
  /// What was found, and what it means: one or two sentences.
  std::string finding;
  /// For a terminal, where there is something to do or to find out there.
  std::string command;
};

/// What became of the trap that the check sends to its own machine.
struct TestTrapFacts {
  /// Why it could not be sent; empty where it was.
  std::string failure;
  bool hasArrived = false;
  /// What Watch says of it.
  std::string verdict;
  bool isOverdue = false;
};

/// All that the check knows.
struct CheckFacts {
  ListeningFacts listening;
  /// Nothing while it is still being asked.
  std::optional<FirewallVerdict> firewall;
  TestTrapFacts testTrap;
  LostDatagrams lostBefore;
  LostDatagrams lostNow;
  /// Users of version 3; nothing where they cannot be read.
  std::optional<std::size_t> users;
  /// Messages of version 3, since the start.
  std::uint64_t refusedVersion3 = 0;
};

/// The steps in the order of a datagram's way.
std::vector<CheckStep> CheckSteps(const CheckFacts& facts, const Settings& settings);

/// "Look here".
std::string_view VerdictText(CheckVerdict verdict);

}  // namespace sentrel
