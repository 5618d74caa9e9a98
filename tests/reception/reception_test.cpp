#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <tuple>

#include "fakes/fake_mib_library.h"
#include "fakes/fake_reception_monitor.h"
#include "fakes/fake_registry.h"
#include "reception/reception_report.h"

namespace sentrel {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

SeenDatagram Seen(const std::string& sender, const std::string& community,
                  Outcome outcome = Outcome::kAccepted) {
  SeenDatagram seen;
  seen.sender = sender;
  seen.community = community;
  seen.outcome = outcome;
  if (outcome == Outcome::kNotSnmp) seen.hint = "A hint.";
  seen.version = 2;
  seen.notification = "1.3.9";
  return seen;
}

const Reason& Find(const std::vector<Reason>& reasons, std::string_view text) {
  return *std::ranges::find(reasons, text, &Reason::text);
}

struct ReceptionTest : testing::Test {
  FakeReceptionMonitor monitor;
  FakeRegistry registry;
  Settings settings{registry};
  FakeMibLibrary mibs;
  Watch watch{monitor, settings, mibs};
  Watch::Clock::time_point now{1h};
};

TEST_F(ReceptionTest, RatesAreThoseOfTheLastTenSeconds) {
  Reasons reasons(monitor);
  const auto rate = [&] { return Find(reasons.List(), "Not SNMP").rate; };
  EXPECT_EQ(rate(), 0);
  for (int second = 0; second <= 30; ++second) {
    reasons.Sample(now + std::chrono::seconds(second));
    reasons.Sample(now + std::chrono::seconds(second) + 1ms);
    monitor.Count(Outcome::kNotSnmp, second < 20 ? 100 : 3);
  }
  EXPECT_DOUBLE_EQ(rate(), 3);
  EXPECT_EQ(Find(reasons.List(), "Not SNMP").count, 20 * 100 + 11 * 3);
}

TEST_F(ReceptionTest, EveryWayOfBeingRefusedHasItsWordsAndARemedy) {
  std::set<std::string_view> texts;
  for (std::size_t i = 0; i < kOutcomes; ++i) {
    const auto outcome = static_cast<Outcome>(i);
    EXPECT_TRUE(texts.insert(ReasonText(outcome)).second) << i;
    EXPECT_EQ(RemedyText(outcome).empty(), outcome == Outcome::kAccepted) << i;
  }
  EXPECT_EQ(Reasons(monitor).List().size(), kOutcomes + 2);
}

TEST_F(ReceptionTest, WatchSaysWhatStandsInTheWay) {
  mibs.entries["1.3.9"] = {"nine", {}};
  const std::tuple<bool, bool, bool, SeenDatagram, const char*, Cure> cases[] = {
      {false, false, false, Seen("10.1.2.3", "a"), "shown", Cure::kNone},
      {true, true, true, Seen("10.1.2.3", "a"), "paused", Cure::kNone},
      {false, true, true, Seen("10.1.2.3", "a"), "no device filter fits 10.1.2.3",
       Cure::kDeviceFilter},
      {false, true, true, Seen("::1", "public"), "no device filter fits ::1", Cure::kDeviceFilter},
      {false, true, true, Seen("10.0.0.1", "Public"), "community not in the list",
       Cure::kCommunityFilter},
      {false, true, true, Seen("10.0.0.1", "public"), "shown", Cure::kNone},
      {true, true, true, Seen("10.9.9.9", "a", Outcome::kWrongDigest),
       "wrong passphrase or algorithm", Cure::kUsers},
      {false, false, false, Seen("10.9.9.9", "", Outcome::kNotSnmp), "Not SNMP. A hint.",
       Cure::kNone},
  };
  settings.DeviceFilters()->AddFilter("10.0.0.1");
  for (const auto& [paused, filtering, communities, seen, verdict, cure] : cases) {
    settings.SetPaused(paused);
    settings.SetDeviceFilterActive(filtering);
    settings.CommunityStrings()->Clear();
    if (communities) settings.CommunityStrings()->Add("public");
    watch.Start(now);
    monitor.watched = {seen};
    watch.Look(now);
    ASSERT_EQ(watch.Seen().size(), 1U);
    EXPECT_EQ(watch.Seen()[0].verdict, verdict);
    EXPECT_EQ(watch.Seen()[0].cure, cure) << verdict;
    EXPECT_EQ(watch.Seen()[0].notification, "nine");
  }
}

TEST_F(ReceptionTest, WatchEndsByItselfAndKeepsWhatItSaw) {
  EXPECT_FALSE(watch.IsOn());
  watch.Start(now);
  EXPECT_TRUE(monitor.watching);
  EXPECT_EQ(watch.Left(now), 10min);
  monitor.watched.assign(Watch::kMostKept + 3, Seen("10.0.0.1", "a"));
  watch.Look(now + 9min);
  EXPECT_EQ(watch.Seen().size(), Watch::kMostKept);
  EXPECT_EQ(watch.Forgotten(), 3U);
  EXPECT_TRUE(watch.IsOn());
  monitor.watched = {Seen("10.0.0.2", "a")};
  monitor.missed = 4;
  watch.Look(now + 10min);
  EXPECT_EQ(watch.Missed(), 4U);
  EXPECT_FALSE(watch.IsOn() || monitor.watching);
  EXPECT_EQ(watch.Seen().back().seen.sender, "10.0.0.2");
  watch.Start(now + 11min);
  EXPECT_TRUE(watch.Seen().empty());
}

TEST_F(ReceptionTest, TheReportHoldsNoCommunityAndObeysNoText) {
  SeenDatagram refused = Seen("10.0.0.9", "secret-user", Outcome::kUnknownUser);
  refused.version = 3;
  refused.level = SecurityLevel::kAuthPriv;
  refused.hint = "A hint.\u202E";
  monitor.Count(Outcome::kUnknownUser, 7);
  watch.Start(now);
  monitor.watched = {Seen("10.0.0.1", "secret")};
  watch.Look(now);
  const std::string report = ReceptionReport(Reasons(monitor).List(), {refused}, watch.Seen(), {});
  EXPECT_THAT(report, Not(HasSubstr("secret")));
  EXPECT_THAT(report, HasSubstr("           7  Unknown user\n"));
  EXPECT_THAT(report,
              HasSubstr("10.0.0.9, v3 authPriv, (hidden), Unknown user. A hint.<U+202E>\n"));
  EXPECT_THAT(report, HasSubstr("10.0.0.1, v2c, (hidden), 1.3.9, shown\n"));
  EXPECT_THAT(report, Not(HasSubstr("Not SNMP"))) << "what never happened";
}

}  // namespace
}  // namespace sentrel
