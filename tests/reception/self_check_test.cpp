#include "reception/self_check.h"

#include <gmock/gmock.h>

#include "fakes/fake_console.h"
#include "fakes/fake_mib_library.h"
#include "fakes/fake_network_facts.h"
#include "fakes/fake_reception_monitor.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_version3_users.h"

namespace sentrel {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct SelfCheckTest : testing::Test {
  SelfCheckTest() {
    monitor.listening = {.port = 162,
                         .hasIpv6 = true,
                         .bufferedTraps = 10'000,
                         .engine = "\x80\x01\x02\x03\x04",
                         .engineBoots = 7,
                         .engineTime = 42s};
    users.users.emplace_back();
  }
  /// Names of the steps with this verdict.
  std::vector<std::string> With(CheckVerdict verdict) {
    std::vector<std::string> names;
    for (const CheckStep& step : check.Steps()) {
      EXPECT_NE(step.finding, "") << step.name;
      if (step.verdict == verdict) names.push_back(step.name);
    }
    return names;
  }
  std::string Finding(const std::string& name) {
    for (const CheckStep& step : check.Steps()) {
      if (step.name == name) return step.finding;
    }
    return "";
  }
  void LookAfter(Watch::Clock::duration time) {
    watch.Look(start + time);
    check.Look(start + time);
  }
  void TestTrapArrives() {
    SeenDatagram seen;
    seen.sender = "127.0.0.1";
    seen.community = SelfCheck::kCommunity;
    seen.outcome = Outcome::kAccepted;
    monitor.watched.push_back(seen);
  }

  FakeReceptionMonitor monitor;
  FakeRegistry registry;
  Settings settings{registry};
  FakeMibLibrary mibs;
  FakeNetworkFacts network;
  FakeVersion3Users users;
  CallLog calls;
  FakeSNMP snmp{calls};
  Watch watch{monitor, settings, mibs};
  SelfCheck check{monitor, network, settings, users, snmp, watch};
  Watch::Clock::time_point start{1h};
};

TEST_F(SelfCheckTest, WaitsForFirewallAndTestTrapAndThenAllIsGood) {
  EXPECT_THAT(check.Steps(), IsEmpty());
  check.Start(start);
  EXPECT_TRUE(watch.IsOn());
  EXPECT_THAT(With(CheckVerdict::kWaiting), ElementsAre("Firewall", "Test trap"));
  network.firewall.set_value(FirewallVerdict::kNoRules);
  TestTrapArrives();
  LookAfter(1s);
  EXPECT_EQ(With(CheckVerdict::kGood).size(), check.Steps().size());
  EXPECT_THAT(Finding("Test trap"), HasSubstr("has arrived: shown."));
  EXPECT_THAT(
      Finding("Version 3"),
      HasSubstr("engine 0x8001020304, which has started 7 times and has been running for 42 s"));
  LookAfter(1h);
  EXPECT_EQ(With(CheckVerdict::kGood).size(), check.Steps().size()) << "and stays so";
}

TEST_F(SelfCheckTest, NamesWhatKeepsTrapsOut) {
  settings.SetPaused(true);
  settings.CommunityStrings()->Add("secret");
  settings.SetDeviceFilterActive(true);
  monitor.listening.hasIpv6 = false;
  monitor.listening.bufferedTraps = 10;
  monitor.Count(Outcome::kUnknownUser, 3);
  check.Start(start);
  network.firewall.set_value(FirewallVerdict::kBlocks);
  TestTrapArrives();
  network.lost.noPort = 4;
  LookAfter(1s);
  EXPECT_THAT(With(CheckVerdict::kLookHere),
              ElementsAre("Addresses", "Firewall", "Receive buffer", "Closed ports", "Version 3",
                          "Pause", "Device filter", "Community filter"));
  EXPECT_THAT(Finding("Test trap"), HasSubstr("has arrived: paused."));
  EXPECT_THAT(Finding("Closed ports"), HasSubstr("4 datagrams"));
  for (const CheckStep& step : check.Steps())
    EXPECT_EQ(step.finding.find("secret"), std::string::npos);
}

TEST_F(SelfCheckTest, SaysWhatItCannotTell) {
  network.lost = {};
  users.unreadable = "damaged";
  snmp.sendResult = 1;
  snmp.statusText = "No way.";
  check.Start(start);
  network.firewall.set_value(FirewallVerdict::kUnreadable);
  LookAfter(1s);
  EXPECT_THAT(With(CheckVerdict::kCannotTell),
              ElementsAre("Firewall", "Test trap", "Closed ports", "Reverse path", "Fragments",
                          "Checksums", "Full buffers", "Version 3"));
  EXPECT_THAT(Finding("Test trap"), HasSubstr("No way."));
}

TEST_F(SelfCheckTest, ATestTrapThatDoesNotComeAndAListenerThatDoesNotListen) {
  check.Start(start);
  LookAfter(SelfCheck::kMostForTestTrap);
  EXPECT_THAT(With(CheckVerdict::kLookHere), ElementsAre("Test trap"));
  TestTrapArrives();
  LookAfter(10s);
  EXPECT_THAT(With(CheckVerdict::kLookHere), IsEmpty()) << "late, but there";
  monitor.listening = {};
  check.Start(start);
  EXPECT_THAT(With(CheckVerdict::kLookHere), ElementsAre("Port"));
  EXPECT_THAT(With(CheckVerdict::kWaiting), IsEmpty());
}

}  // namespace
}  // namespace sentrel
