#include "snmp/engine_clocks.h"

#include <gtest/gtest.h>

#include <vector>

#include "encoded_message.h"
#include "snmp/answer_limit.h"
#include "snmp/version3_users.h"

namespace sentrel::test {
namespace {

using namespace std::chrono_literals;

/// A digest that differs with the number.
std::vector<std::uint8_t> Digest(std::uint32_t number) {
  std::vector<std::uint8_t> digest(12);
  for (int i = 0; i < 4; ++i) digest[i] = static_cast<std::uint8_t>(number >> (8 * i));
  return digest;
}

/// Messages of an engine at its time, arriving so long after the first.
class EngineClocksTest : public testing::Test {
 protected:
  Freshness Arrive(EngineMoment moment, std::uint32_t number, std::chrono::seconds after,
                   const std::string& engine = "device") {
    const auto now = start_ + after;
    const Freshness freshness = clocks_.Judge(engine, moment, Digest(number), now);
    if (freshness == Freshness::kFresh) clocks_.Take(engine, moment, Digest(number), now);
    return freshness;
  }

  const EngineClocks::Clock::time_point start_ = EngineClocks::Clock::now();
  EngineClocks clocks_{"own", {{"heard before", {3, 500}}}};
};

TEST_F(EngineClocksTest, TellsFreshMessagesFromRecordedOnes) {
  struct Case {
    EngineMoment moment;
    std::uint32_t number;
    std::chrono::seconds after;
    Freshness freshness;
    const char* what;
  };
  const Case cases[] = {
      {{5, 1000}, 1, 0s, Freshness::kFresh, "first"},
      {{5, 1000}, 1, 0s, Freshness::kRepeated, "the same at once"},
      {{5, 1000}, 2, 149s, Freshness::kFresh, "another of the same second"},
      {{5, 850}, 3, 149s, Freshness::kStale, "late, and this clock has gone on"},
      {{5, 1010}, 4, 200s, Freshness::kFresh, "later than ever, from a slow clock"},
      {{5, 1000}, 1, 201s, Freshness::kRepeated, "the first again, within the slow clock's window"},
      {{5, 900}, 5, 201s, Freshness::kFresh, "overtaken on its way"},
      {{5, 1000}, 1, 300s, Freshness::kRepeated, "its digest is as old as any is kept"},
      {{5, 1100}, 6, 302s, Freshness::kFresh, "an old digest goes"},
      {{5, 1000}, 1, 302s, Freshness::kStale, "and what could repeat it with it"},
      {{5, 1050}, 7, 302s, Freshness::kFresh, "overtaken, behind what went"},
      {{4, 9999}, 8, 303s, Freshness::kStale, "from before a restart"},
      {{6, 0}, 9, 303s, Freshness::kFresh, "restarted"},
      {{5, 1200}, 10, 303s, Freshness::kStale, "from before that restart"},
      {{2147483647, 0}, 11, 303s, Freshness::kStale, "a count at its end"},
  };
  for (const Case& message : cases) {
    EXPECT_EQ(Arrive(message.moment, message.number, message.after), message.freshness)
        << message.what;
  }
  const auto newest = clocks_.Newest();
  EXPECT_EQ(newest.size(), 2U);
  EXPECT_EQ(newest.at("device").boots, 6U);
}

TEST_F(EngineClocksTest, EarlierRunLeavesOnlyLaterMomentsFresh) {
  EXPECT_EQ(Arrive({3, 500}, 1, 0s, "heard before"), Freshness::kStale);
  EXPECT_EQ(Arrive({2, 900}, 2, 0s, "heard before"), Freshness::kStale);
  EXPECT_EQ(Arrive({3, 501}, 3, 0s, "heard before"), Freshness::kFresh);
}

TEST_F(EngineClocksTest, SendersToThisEngineMayDisagreeOnItsTime) {
  EXPECT_EQ(Arrive({1, 300}, 1, 0s, "own"), Freshness::kFresh);
  EXPECT_EQ(Arrive({1, 20}, 2, 0s, "own"), Freshness::kFresh);
  EXPECT_EQ(Arrive({1, 20}, 2, 1s, "own"), Freshness::kRepeated);
  EXPECT_FALSE(clocks_.Newest().contains("own"));
}

TEST_F(EngineClocksTest, ForgottenDigestsDoNotPassAgain) {
  ASSERT_EQ(Arrive({1, 0}, 0, 0s), Freshness::kFresh);
  for (std::uint32_t i = 1; i <= EngineClocks::kMostDigests; ++i) {
    ASSERT_EQ(Arrive({1, i / 10'000}, i, 0s), Freshness::kFresh);
  }
  EXPECT_EQ(Arrive({1, 0}, 0, 0s), Freshness::kStale);
  EXPECT_EQ(Arrive({1, 1}, 10'000, 0s), Freshness::kRepeated);
}

TEST(AuthUser, LowersOnlyWhatTheLineSays) {
  LeastLevels levels;
  for (const char* line :
       {"log one", "log,execute,net two noauth", "log -s usm three priv", "log -s tsm four noauth",
        "log five noauth 1.3.6.1.4.1", "log six noauth -V view", "log seven loud", "log", ""}) {
    TakeAuthUser(line, levels);
  }
  EXPECT_EQ(levels, (LeastLevels{{"one", SecurityLevel::kAuthNoPriv},
                                 {"two", SecurityLevel::kNoAuthNoPriv},
                                 {"three", SecurityLevel::kAuthPriv}}));
}

TEST(AnswerLimitTest, OneSourceDoesNotSilenceTheOthers) {
  AnswerLimit limit;
  const auto now = AnswerLimit::Clock::now();
  const auto allowed = [&](std::uint32_t address, AnswerLimit::Clock::time_point moment) {
    int count = 0;
    while (count < 10'000 && limit.Allows(PeerOf(address, 162), moment)) ++count;
    return count;
  };
  EXPECT_EQ(allowed(1, now), 2 * AnswerLimit::kOfOneSource);
  EXPECT_EQ(allowed(2, now), 2 * AnswerLimit::kOfOneSource);
  EXPECT_EQ(allowed(1, now + 1s), AnswerLimit::kOfOneSource);
  int all = 0;
  for (std::uint32_t address = 3; address < 1'000; ++address) all += allowed(address, now + 1s);
  EXPECT_LE(all, 2 * AnswerLimit::kInAll);
}

}  // namespace
}  // namespace sentrel::test
