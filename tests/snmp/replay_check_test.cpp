#include "snmp/replay_check.h"

#include <gtest/gtest.h>

#include <vector>

#include "encoded_message.h"
#include "fakes/table_file.h"
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
class ReplayCheckTest : public testing::Test {
 protected:
  Freshness Arrive(EngineMoment moment, std::uint32_t number, std::chrono::seconds after,
                   const std::string& engine = "device") {
    const auto now = start_ + after;
    const Freshness freshness = replays_.Judge(engine, moment, Digest(number), now);
    if (freshness == Freshness::kFresh) replays_.Take(engine, moment, Digest(number), now);
    return freshness;
  }

  const ReplayCheck::Clock::time_point start_ = ReplayCheck::Clock::now();
  ReplayCheck replays_{"own", {{"heard before", {3, 500}}}};
};

TEST_F(ReplayCheckTest, TellsFreshMessagesFromRecordedOnes) {
  const std::map<std::string, Freshness> names = {{"fresh", Freshness::kFresh},
                                                  {"repeated", Freshness::kRepeated},
                                                  {"stale", Freshness::kStale}};
  const auto number = [](const std::string& text) {
    return static_cast<std::uint32_t>(std::stoul(text));
  };
  for (const auto& row : RowsOf(TEST_DATA "/snmp/engine_moments.txt")) {
    const EngineMoment moment{number(row.at(0)), number(row.at(1))};
    EXPECT_EQ(Arrive(moment, number(row.at(2)), std::chrono::seconds(number(row.at(3)))),
              names.at(row.at(4)))
        << row.at(5);
  }
  const auto newest = replays_.Newest();
  EXPECT_EQ(newest.size(), 2U);
  EXPECT_EQ(newest.at("device").boots, 6U);
}

TEST_F(ReplayCheckTest, EarlierRunLeavesOnlyLaterMomentsFresh) {
  EXPECT_EQ(Arrive({3, 500}, 1, 0s, "heard before"), Freshness::kStale);
  EXPECT_EQ(Arrive({2, 900}, 2, 0s, "heard before"), Freshness::kStale);
  EXPECT_EQ(Arrive({3, 501}, 3, 0s, "heard before"), Freshness::kFresh);
}

TEST_F(ReplayCheckTest, SendersToThisEngineMayDisagreeOnItsTime) {
  EXPECT_EQ(Arrive({1, 300}, 1, 0s, "own"), Freshness::kFresh);
  EXPECT_EQ(Arrive({1, 20}, 2, 0s, "own"), Freshness::kFresh);
  EXPECT_EQ(Arrive({1, 20}, 2, 1s, "own"), Freshness::kRepeated);
  EXPECT_FALSE(replays_.Newest().contains("own"));
}

TEST_F(ReplayCheckTest, ForgottenDigestsDoNotPassAgain) {
  ASSERT_EQ(Arrive({1, 0}, 0, 0s), Freshness::kFresh);
  for (std::uint32_t i = 1; i <= ReplayCheck::kMostDigests; ++i) {
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
