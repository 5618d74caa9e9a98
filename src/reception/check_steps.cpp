#include "reception/check_steps.h"

#include <fmt/format.h>

#include <iterator>

namespace sentrel {
namespace {

using enum CheckVerdict;

constexpr std::string_view kListen = "sudo tcpdump -ni any udp port 162";
/// Where fewer fit, a burst of traps of many devices is lost.
constexpr std::size_t kEnoughBuffered = 1'000;

CheckStep PortStep(const ListeningFacts& listening) {
  if (listening.port == 0) {
    return {"Port", kLookHere,
            "Sentrel does not listen. Start it anew: it says what is in its way.",
            "sudo ss -lunp 'sport = :162'"};
  }
  return {
      "Port", kGood,
      fmt::format("Sentrel listens on UDP port {}. Set the devices to send there.", listening.port),
      ""};
}

CheckStep FamiliesStep(const ListeningFacts& listening) {
  if (listening.hasIpv6) return {"Addresses", kGood, "Sentrel listens for IPv4 and for IPv6.", ""};
  return {"Addresses", kLookHere,
          "IPv6 is off on this machine: devices must send to its IPv4 address.",
          "sysctl net.ipv6.conf.all.disable_ipv6"};
}

CheckStep FirewallStep(std::optional<FirewallVerdict> firewall) {
  CheckStep step{"Firewall", kGood, "", ""};
  if (!firewall) {
    step.verdict = kWaiting;
    step.finding = "Reading the rules ...";
    return step;
  }
  switch (*firewall) {
    case FirewallVerdict::kUnreadable:
      step.verdict = kCannotTell;
      step.finding =
          "This user may not read the rules of the firewall. Look for one that lets UDP "
          "port 162 in.";
      step.command = "sudo nft list ruleset";
      break;
    case FirewallVerdict::kNoRules:
      step.finding = "The firewall of this machine has no rules.";
      break;
    case FirewallVerdict::kLetsIn:
      step.finding = "No rule of this machine's firewall keeps UDP port 162 out.";
      break;
    case FirewallVerdict::kBlocks:
      step.verdict = kLookHere;
      step.finding =
          "The firewall of this machine keeps UDP port 162 out, or lets only some "
          "senders in. To open it where firewalld or ufw manages the rules: firewall-cmd "
          "--add-port=162/udp, ufw allow 162/udp.";
      step.command = "sudo nft list ruleset";
      break;
  }
  return step;
}

CheckStep TestTrapStep(const TestTrapFacts& trap) {
  CheckStep step{"Test trap", kGood, "", ""};
  if (!trap.failure.empty()) {
    step.verdict = kCannotTell;
    step.finding = "A test trap could not be sent: " + trap.failure;
  } else if (trap.hasArrived) {
    step.finding = "A trap from this machine to itself has arrived: " + trap.verdict +
                   ". It passes no firewall, so it proves nothing about one.";
  } else if (trap.isOverdue) {
    step.verdict = kLookHere;
    step.finding =
        "A trap from this machine to itself did not arrive. Look whether it is seen at "
        "all.";
    step.command = kListen;
  } else {
    step.verdict = kWaiting;
    step.finding = "Waiting for a trap from this machine to itself ...";
  }
  return step;
}

struct Loss {
  const char* name;
  std::optional<std::uint64_t> LostDatagrams::*count;
  const char* meaning;
  std::string_view command;
};

constexpr Loss kLosses[] = {
    {"Closed ports", &LostDatagrams::noPort,
     "came for a port that no program has open. Does a device send to another port than 162?",
     "sudo tcpdump -ni any udp and dst port not 162"},
    {"Reverse path", &LostDatagrams::wrongWay,
     "came by another interface than answers to their senders would take, and the reverse path "
     "filter dropped them. Mend the route, or make the filter loose.",
     "sudo sysctl -w net.ipv4.conf.all.rp_filter=2"},
    {"Fragments", &LostDatagrams::notReassembled,
     "were large and lost a part on their way. Look for a firewall or a tunnel that drops "
     "fragments.",
     "sudo tcpdump -ni any 'ip[6:2] & 0x3fff != 0'"},
    {"Checksums", &LostDatagrams::wrongChecksum,
     "had a wrong checksum. Look at the sender, or at the network card's offloading.",
     "sudo tcpdump -vv -ni any udp port 162"},
    {"Full buffers", &LostDatagrams::fullBuffer,
     "found the buffer of their program full. Give it more, then restart Sentrel.",
     "sudo sysctl -w net.core.rmem_max=16777216"},
};

CheckStep LossStep(const Loss& loss, const CheckFacts& facts) {
  const auto before = facts.lostBefore.*loss.count;
  const auto now = facts.lostNow.*loss.count;
  CheckStep step{loss.name, kGood, "None since the check began.", ""};
  if (!before || !now) {
    step.verdict = kCannotTell;
    step.finding = "This system does not count them.";
  } else if (*now > *before) {
    step.verdict = kLookHere;
    step.finding =
        fmt::format("Since the check began {} datagrams {}", *now - *before, loss.meaning);
    step.command = loss.command;
  }
  return step;
}

CheckStep BufferStep(const ListeningFacts& listening) {
  CheckStep step{"Receive buffer", kGood,
                 fmt::format("There is room for {} small traps.", listening.bufferedTraps), ""};
  if (listening.bufferedTraps >= kEnoughBuffered) return step;
  step.verdict = kLookHere;
  step.finding +=
      " More that come at once are lost: let the system give more, then restart "
      "Sentrel.";
  step.command = "sudo sysctl -w net.core.rmem_max=16777216";
  return step;
}

CheckStep Version3Step(const CheckFacts& facts) {
  CheckStep step{"Version 3", kGood, "", ""};
  if (!facts.users) {
    step.verdict = kCannotTell;
    step.finding = "The users cannot be read: the page of the settings tells why.";
  } else {
    step.finding = fmt::format("Users that are known: {}.", *facts.users);
  }
  if (facts.refusedVersion3 > 0) {
    step.verdict = kLookHere;
    step.finding += fmt::format(
        " Messages of version 3 that were refused since the start: {}. The page Refused tells why, "
        "and the users are in the settings.",
        facts.refusedVersion3);
  }
  if (!facts.listening.engine.empty()) {
    std::string hex;
    for (const char byte : facts.listening.engine) {
      fmt::format_to(std::back_inserter(hex), "{:02x}", byte & 0xFF);
    }
    step.finding += fmt::format(
        " Informs are for the engine 0x{}, which has started {} times and has been running for {} "
        "seconds: a sender that thinks otherwise must ask anew. Traps carry the engine and the "
        "time of their device.",
        hex, facts.listening.engineBoots, facts.listening.engineTime.count());
  }
  return step;
}

CheckStep FilterStep(const char* name, bool isOn, std::size_t entries, const char* what) {
  if (!isOn) return {name, kGood, fmt::format("Off: traps {} are shown.", what), ""};
  return {name, kLookHere,
          fmt::format("On: only traps that one of {} entries lets in are shown.", entries), ""};
}

std::vector<CheckStep> FilterSteps(const Settings& settings) {
  const bool isPaused = settings.Paused();
  CheckStep pause{
      "Pause", isPaused ? kLookHere : kGood,
      isPaused ? "Receiving is paused: nothing is shown. Press Pause once more." : "Off.", ""};
  const auto communities = static_cast<std::size_t>(settings.CommunityStrings()->Count());
  const auto devices = static_cast<std::size_t>(settings.DeviceFilters()->Count()) +
                       settings.Ipv6DeviceFilters()->Count();
  return {pause,
          FilterStep("Device filter", settings.DeviceFilterActive(), devices, "of all devices"),
          FilterStep("Community filter", communities > 0, communities, "of all communities")};
}

}  // namespace

std::vector<CheckStep> CheckSteps(const CheckFacts& facts, const Settings& settings) {
  std::vector<CheckStep> steps = {PortStep(facts.listening)};
  if (facts.listening.port != 0) {
    steps.push_back(FamiliesStep(facts.listening));
    steps.push_back(FirewallStep(facts.firewall));
    steps.push_back(TestTrapStep(facts.testTrap));
    steps.push_back(BufferStep(facts.listening));
  }
  for (const Loss& loss : kLosses) steps.push_back(LossStep(loss, facts));
  steps.push_back(Version3Step(facts));
  for (CheckStep& step : FilterSteps(settings)) steps.push_back(std::move(step));
  return steps;
}

std::string_view VerdictText(CheckVerdict verdict) {
  switch (verdict) {
    case kGood:
      return "Good";
    case kLookHere:
      return "Look here";
    case kCannotTell:
      return "Cannot tell";
    case kWaiting:
      break;
  }
  return "...";
}

}  // namespace sentrel
