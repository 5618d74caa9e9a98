#include "snmp/sender.h"

#include <gmock/gmock.h>

#include <future>

#include "listener_fixture.h"
#include "snmp/within_time.h"

namespace sentrel::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::Eq;
using testing::HasSubstr;
using namespace std::chrono_literals;

const std::string kId = "1.3.6.1.4.1.58213.10.1";
const std::vector<std::string> kTestOids = {"1.3.6.1.2.1.1.3.0", "1.3.6.1.6.3.1.1.4.1.0",
                                            "1.3.6.1.6.3.1.1.4.3.0", kId};
const std::vector<std::string> kTestValues = {"0", "1.3.6.1.4.1.58213.10", "1.3.6.1.4.1.58213",
                                              "Test trap at 03:49 PM"};
const std::vector<std::int16_t> kTestTypes = {67, 6, 6, 4};

struct SenderTest : ListenerTest {
  /// Sends one binding to the listener itself.
  std::int16_t SendOne(int type, const std::string& value, const std::string& id = kId) {
    sender_ = std::make_unique<Sender>(Listener().Port());
    return sender_->SendTrap("127.0.0.1", "public", {id}, {value},
                             {static_cast<std::int16_t>(type)});
  }
  std::unique_ptr<Sender> sender_;
};

TEST_F(SenderTest, ExactlyTheGivenBindingsArriveOverBothFamilies) {
  Start();
  Sender sender(Listener().Port());
  for (const char* target : {"127.0.0.1", "127.000.000.001", "::1", "localhost"}) {
    EXPECT_EQ(sender.SendTrap(target, "a::b=c", kTestOids, kTestValues, kTestTypes), 0) << target;
    EXPECT_EQ(sender.StatusText(), "OK");
  }
  ASSERT_TRUE(WaitForTraps(4));
  EXPECT_EQ(traps_[0].SourceAddress, "127.0.0.1");
  EXPECT_EQ(traps_[2].SourceAddress, "::1");
  for (const Trap& trap : traps_) {
    EXPECT_EQ(trap.Community, "a::b=c");
    EXPECT_EQ(trap.OIDs, kTestOids);
    EXPECT_EQ(trap.Values, kTestValues);
    EXPECT_THAT(trap.DataTypes, ElementsAre(67, 6, 6, 4));
  }
}

TEST_F(SenderTest, EveryTypeArrivesWithTheTextThatWasSent) {
  const std::pair<int, std::vector<std::string>> types[] = {
      {2, {"-2147483648", "2147483647"}},
      {65, {"4294967295"}},
      {66, {"0"}},
      {67, {"4294967295"}},
      {71, {"7"}},
      {70, {"18446744073709551615", "4294967296"}},
      {5, {""}},
      {64, {"255.0.2.1"}},
      {6, {"0.0", "2.999.4294967295", "1.3.6.1.4.1.128.16384"}},
      {4, {"", "0x", "0xZZ", "0x4142", "0x00FF1A", "Grüße\r\n\t€", std::string(60 * 1024, 'x')}},
      {3, {"0x80"}},
      {69, {"0x490001"}},
      {68,
       {"1.5", "0.1", "3.141592653589793", "-2", "18446744073709551615", "-9223372036854775807",
        "0xFF", "text"}},
  };
  Start();
  std::size_t count = 0;
  for (const auto& [type, values] : types) {
    for (const std::string& value : values) {
      ASSERT_EQ(SendOne(type, value), 0) << type << " " << sender_->StatusText();
      ASSERT_TRUE(WaitForTraps(++count)) << type << " " << value;
      EXPECT_THAT(traps_.back().OIDs, ElementsAre(kId));
      EXPECT_THAT(traps_.back().DataTypes, ElementsAre(type)) << value;
      EXPECT_THAT(traps_.back().Values, ElementsAre(value)) << type;
    }
  }
}

TEST_F(SenderTest, WhatDoesNotFitIsToldAndNotSent) {
  struct Case {
    int type;
    std::vector<std::string> values;
    std::string reason;
  };
  const Case cases[] = {
      {2, {"2147483648"}, "a whole number from -2147483648 to 2147483647, not \"2147483648\"."},
      {2,
       {"", " 1", "1x", "up(1)", "tag 0x02: empty"},
       "must be a whole number from -2147483648 to 2147483647"},
      {65, {"-1"}, "must be a whole number from 0 to 4294967295"},
      {66, {"4294967296"}, "must be a whole number from 0 to 4294967295"},
      {67, {"1.5"}, "must be a whole number from 0 to 4294967295"},
      {70, {"18446744073709551616"}, "must be a whole number from 0 to 18446744073709551615"},
      {5, {"x"}, "must be empty, not \"x\"."},
      {5, {"tag 0x05: 0x78"}, "must be empty"},
      {6, {"", "1", "3.1", "1.40", "1.3.4294967296", "1..3"}, "must be an object identifier"},
      {6, {"1.3" + std::string(254, '.')}, "must be an object identifier, such as 1.3.6.1.4.1."},
      {64, {"192.0.2.256", "::1", "tag 0x40: 0xC00002"}, "must be an IPv4 address"},
      {0, {"x"}, "The type code 0 of"},
      {48, {""}, "The type code 48"},
      {129, {""}, "type code 129"},
      {300, {""}, "type code 300"},
      {4, {std::string(65'507, 'x')}, "too large to be sent: 655"},
  };
  Start();
  for (const auto& [type, values, reason] : cases) {
    for (const std::string& value : values) {
      EXPECT_NE(SendOne(type, value), 0) << type << " " << value;
      EXPECT_THAT(sender_->StatusText(), HasSubstr(reason)) << type << " " << value;
    }
  }
  for (const char* id : {"", "1", "x", "1.3.", "sysUpTime.0", "no name", "tag 0x06: empty"}) {
    EXPECT_NE(SendOne(4, "x", id), 0) << id;
    EXPECT_THAT(sender_->StatusText(), HasSubstr("is no object identifier")) << id;
  }
  EXPECT_EQ(SendOne(4, "the only one"), 0);
  EXPECT_TRUE(WaitForTraps(1));
  EXPECT_THAT(traps_.at(0).Values, ElementsAre("the only one"));
  EXPECT_EQ(traps_.size(), 1U);
}

TEST_F(SenderTest, SendingNeedsNoListenerAndDisturbsNone) {
  Start();
  const std::uint16_t port = Listener().Port();
  auto storm = std::async(std::launch::async, [port] {
    Sender sender(port);
    int sent = 0;
    for (int i = 0; i < 500; ++i) {
      sent += sender.SendTrap("127.0.0.1", "public", kTestOids, kTestValues, kTestTypes) == 0;
      sender.SendTrap("127.0.0.1", "public", {kId}, {"x"}, {2});
    }
    return sent;
  });
  EXPECT_TRUE(WaitForTraps(500));
  EXPECT_EQ(storm.get(), 500);
  Stop();
  EXPECT_EQ(Sender(port).SendTrap("127.0.0.1", "", {}, {}, {}), 0);
}

TEST_F(SenderTest, FailuresAreToldInWords) {
  Sender sender(9);
  const auto reason = [&](const char* target) {
    EXPECT_NE(sender.SendTrap(target, "public", {}, {}, {}), 0) << target;
    return sender.StatusText();
  };
  // Which of the two depends on the network that the test runs in.
  EXPECT_THAT(reason("no-such-host.invalid"),
              AnyOf(Eq("The host \"no-such-host.invalid\" is not known."),
                    Eq("No name server answers the question for \"no-such-host.invalid\".")));
  EXPECT_THAT(reason("255.255.255.255"),
              AnyOf(Eq("Permission denied: this machine may not send to 255.255.255.255."),
                    Eq("Network unreachable: this machine has no way to 255.255.255.255.")));
}

TEST_F(SenderTest, HostsAreResolvedToDottedQuads) {
  Sender sender;
  EXPECT_EQ(sender.ResolveHost("localhost"), "127.0.0.1");
  EXPECT_EQ(sender.ResolveHost("::1"), "") << "it has no dotted quad";
  EXPECT_EQ(sender.ResolveHost(""), "");
  for (const char* part : {"1.2.3", "127.1", "0x7f.1", "2130706433", "0x7f000001"})
    EXPECT_EQ(sender.ResolveHost(part), "") << part;
  EXPECT_EQ(sender.ResolveHost(std::string(5'000, 'x')), "");
  EXPECT_THAT(sender.StatusText(), testing::Not("OK"));
}

TEST_F(SenderTest, NoAnswerInTimeIsNoAnswer) {
  const auto latch = std::make_shared<std::promise<void>>();
  const std::shared_future<void> open(latch->get_future());
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(WithinTime<int>(50ms, [open] {
    open.wait();
    return 1;
  }));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
  latch->set_value();
  EXPECT_EQ(WithinTime<int>(20s, [] { return 2; }), 2);
}

}  // namespace
}  // namespace sentrel::test
