#include "snmp/sender.h"

#include <gmock/gmock.h>

#include <future>

#include "encoded_message.h"
#include "fakes/table_file.h"
#include "listener_fixture.h"
#include "oracle/library_reading.h"
#include "snmp/trap_message.h"

namespace sentrel::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::Eq;
using testing::HasSubstr;

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
  auto rows = RowsOf(TEST_DATA "/snmp/sendable_values.txt");
  rows.push_back({"4", "Grüße\r\n\t€"});
  rows.push_back({"4", std::string(61'440, 'x')});
  Start();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int type = std::stoi(rows[i].at(0));
    const std::string& value = rows[i].at(1);
    ASSERT_EQ(SendOne(type, value), 0) << type << " " << sender_->StatusText();
    ASSERT_TRUE(WaitForTraps(i + 1)) << type << " " << value;
    EXPECT_THAT(traps_.back().OIDs, ElementsAre(kId));
    EXPECT_THAT(traps_.back().DataTypes, ElementsAre(type)) << value;
    EXPECT_THAT(traps_.back().Values, ElementsAre(value)) << type;
  }
}

TEST_F(SenderTest, AnotherReaderSeesEveryTypeAsItself) {
  Trap sent{"127.0.0.1", "a b", {}, {}, {}};
  for (const auto& row : RowsOf(TEST_DATA "/snmp/sendable_values.txt")) {
    sent.OIDs.push_back(kId);
    sent.DataTypes.push_back(std::stoi(row.at(0)));
    sent.Values.push_back(row.at(1));
  }
  const auto bytes = TrapMessage(sent.Community, sent.OIDs, sent.Values,
                                 {sent.DataTypes.begin(), sent.DataTypes.end()});
  EXPECT_EQ(LibraryReading(FromLoopback({bytes.begin(), bytes.end()})), sent);
}

TEST_F(SenderTest, WhatDoesNotFitIsToldAndNotSent) {
  auto rows = RowsOf(TEST_DATA "/snmp/unsendable_values.txt");
  rows.push_back({"2", " 1", "must be a whole number from -2147483648 to 2147483647"});
  rows.push_back(
      {"6", "1.3" + std::string(254, '.'), "must be an object identifier, such as 1.3.6.1.4.1."});
  rows.push_back({"4", std::string(65'507, 'x'), "too large to be sent: 655"});
  Start();
  for (const auto& row : rows) {
    EXPECT_NE(SendOne(std::stoi(row.at(0)), row.at(1)), 0) << row[0] << " " << row[1];
    EXPECT_THAT(sender_->StatusText(), HasSubstr(row.at(2))) << row[0] << " " << row[1];
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

}  // namespace
}  // namespace sentrel::test
