#include <gmock/gmock.h>

#include "encoded_message.h"
#include "fakes/table_file.h"
#include "listener_fixture.h"

namespace sentrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kVendor = "1.3.6.1.4.1.58213";
const std::string kUpTime = "1.3.6.1.2.1.1.3.0";
const std::string kTrapOid = "1.3.6.1.6.3.1.1.4.1.0";
const std::string kTrapAddress = "1.3.6.1.6.3.18.1.3.0";
const std::string kTrapEnterprise = "1.3.6.1.6.3.1.1.4.3.0";

class NotificationTest : public ListenerTest {
 protected:
  /// Sends with snmptrap and gives the trap that arrives, or an empty one.
  Trap Arrives(const std::vector<std::string>& arguments) {
    const std::size_t before = traps_.size();
    EXPECT_EQ(Send(SNMPTRAP, arguments), 0);
    EXPECT_TRUE(WaitForTraps(before + 1));
    return traps_.size() > before ? traps_.back() : Trap{};
  }
};

TEST_F(NotificationTest, Version1TrapBecomesVersion2Bindings) {
  using Texts = std::vector<std::string>;
  const std::string kIfIndex = "1.3.6.1.2.1.2.2.1.1.3";
  const struct {
    Texts arguments, ids, values;
  } cases[] = {
      {{"192.0.2.7", "2", "0", "4711", kIfIndex, "i", "3"},
       {kUpTime, kTrapOid, kIfIndex, kTrapAddress, kTrapEnterprise},
       {"4711", "1.3.6.1.6.3.1.1.5.3", "3", "192.0.2.7", kVendor}},
      // The source's own address says nothing new.
      {{"127.0.0.1", "6", "42", "1"},
       {kUpTime, kTrapOid, kTrapEnterprise},
       {"1", kVendor + ".0.42", kVendor}},
      {{"0.0.0.0", "6", "42", "1"},
       {kUpTime, kTrapOid, kTrapEnterprise},
       {"1", kVendor + ".0.42", kVendor}},
      // Bindings of the trap's own stay.
      {{"192.0.2.7", "0", "0", "1", kTrapEnterprise, "o", "1.3.6.1.4.1.1", kTrapAddress, "a",
        "192.0.2.9"},
       {kUpTime, kTrapOid, kTrapEnterprise, kTrapAddress},
       {"1", "1.3.6.1.6.3.1.1.5.1", "1.3.6.1.4.1.1", "192.0.2.9"}},
  };
  Start();
  for (const auto& [arguments, ids, values] : cases) {
    Texts command = {"-v1", "-c", "private", "HOST", kVendor};
    command.insert(command.end(), arguments.begin(), arguments.end());
    const Trap trap = Arrives(command);
    EXPECT_EQ(trap.SourceAddress, "127.0.0.1");
    EXPECT_EQ(trap.Community, "private");
    EXPECT_EQ(trap.OIDs, ids);
    EXPECT_EQ(trap.Values, values);
  }
  EXPECT_THAT(traps_[0].DataTypes, ElementsAre(67, 6, 2, 64, 6));
}

TEST_F(NotificationTest, Version2KeepsEveryTypeAndOrder) {
  auto rows = RowsOf(TEST_DATA "/snmp/sent_types.txt");
  const std::string text = "Gr\u00fc\u00dfe\tund \u20ac\r\n";
  rows.push_back({"s", text, "4", text});
  Start();
  std::vector<std::string> command = {"-v2c", "-c", "", "HOST", "4711", kVendor + ".10"};
  std::vector<std::string> ids = {kUpTime, kTrapOid};
  std::vector<int> types = {67, 6};
  std::vector<std::string> values = {"4711", kVendor + ".10"};
  for (const auto& row : rows) {
    ids.push_back(kVendor + "." + std::to_string(ids.size()));
    types.push_back(std::stoi(row.at(2)));
    values.push_back(row.at(3));
    command.insert(command.end(), {ids.back(), row.at(0), row.at(1)});
  }
  const Trap trap = Arrives(command);
  EXPECT_EQ(trap.Community, "");
  EXPECT_EQ(trap.OIDs, ids);
  EXPECT_EQ(trap.DataTypes, types);
  EXPECT_EQ(trap.Values, values);
}

TEST_F(NotificationTest, TheLargestDatagramArrivesWhole) {
  const std::string community(255, 'c');
  const auto withText = [&](std::size_t size) {
    const std::string binding =
        Tagged(0x30, Tagged(6, "\x2b\x06\x01") + Tagged(4, std::string(size, 'x')));
    return Message(1, Pdu(0xA7, binding), community);
  };
  const std::size_t size = 65'507 - (withText(60'000).size() - 60'000);
  Start();
  UdpSocket(Listener().Port()).Send(withText(size));
  ASSERT_TRUE(WaitForTraps(1));
  EXPECT_EQ(traps_[0].Values.back(), std::string(size, 'x'));
  EXPECT_EQ(traps_[0].Community, community);
}

TEST_F(NotificationTest, InformIsAnsweredFromTheAddressItWasSentTo) {
  Start();
  const std::vector<std::string> inform = {"-v2c", "-r0", "-t5", "-c", "c", "HOST", "1", kVendor};
  EXPECT_EQ(Send(SNMPINFORM, inform), 0);
  EXPECT_EQ(Send(SNMPINFORM, inform, "127.0.0.2"), 0);
  ASSERT_TRUE(WaitForTraps(2));
  EXPECT_EQ(Listener().Counters().answeredInforms, 2U);
}

TEST_F(NotificationTest, NothingArrivesAfterStopUntilItStartsAgain) {
  Start();
  const std::uint16_t port = Listener().Port();
  EXPECT_EQ(Send(SNMPTRAP, {"-v2c", "-c", "c", "HOST", "1", kVendor}), 0);
  ASSERT_TRUE(WaitBlockedUntil([&] { return Count(Outcome::kAccepted) == 1; }));
  EXPECT_THAT(traps_, IsEmpty());
  Listener().StopListening();
  EXPECT_EQ(traps_.size(), 1U) << "what had arrived is handed on first";
  EXPECT_FALSE(Listener().Deliver(std::chrono::milliseconds(1)));
  EXPECT_EQ(traps_.size(), 1U);
  EXPECT_FALSE(Listener().IsListening());
  EXPECT_NE(port, Listener().Port());
  ASSERT_EQ(Listener().StartListening(), 0);
  EXPECT_EQ(Arrives({"-v2c", "-c", "again", "HOST", "1", kVendor}).Community, "again");
}

}  // namespace
}  // namespace sentrel::test
