#include <gmock/gmock.h>

#include "fakes/notification.h"
#include "listener_fixture.h"

namespace sentrel::test {
namespace {

constexpr std::size_t kLargestDatagram = 65'507;

class ExtremeTrapTest : public ListenerTest {
 protected:
  void SetUp() override { Start(); }
  const Trap& Received(const std::string& datagram) {
    const std::size_t before = traps_.size();
    UdpSender(Listener().Port()).Send(datagram);
    EXPECT_TRUE(WaitForTraps(before + 1));
    return traps_.back();
  }
};

/// The longest OID, RFC 2578, section 3.5.
std::string LongestOid(const std::string& subidentifier) {
  std::string id = "1.3";
  for (int i = 2; i < 128; ++i) id += "." + subidentifier;
  return id;
}

TEST_F(ExtremeTrapTest, TheLargestDatagramArrivesWhole) {
  const std::string id = "1.3.6.1.4.1.58213.1";
  const std::string community(255, 'c');
  const auto withText = [&](std::size_t size) {
    return NotificationBytes(community, {id}, {std::string(size, 'x')});
  };
  const std::size_t size = kLargestDatagram - (withText(60'000).size() - 60'000);
  ASSERT_EQ(withText(size).size(), kLargestDatagram);
  const Trap& trap = Received(withText(size));
  EXPECT_EQ(trap.Values.back(), std::string(size, 'x'));
  EXPECT_EQ(trap.Community, community);
}

TEST_F(ExtremeTrapTest, FiveThousandBindingsArriveInOrder) {
  std::vector<std::string> ids(5000);
  for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = "1.3.6." + std::to_string(i);
  const Trap& trap = Received(NotificationBytes("c", ids, std::vector<std::string>(5000)));
  EXPECT_EQ(std::vector(trap.OIDs.begin() + 2, trap.OIDs.end()), ids);
}

TEST_F(ExtremeTrapTest, AnOidOfAHundredAndTwentyEightSubidentifiersArrives) {
  const std::string id = LongestOid("4294967295");
  EXPECT_EQ(Received(NotificationBytes("c", {id}, {"x"})).OIDs.back(), id);
}

/// Whether taken or dropped, it does no harm.
TEST_F(ExtremeTrapTest, ALongerOidHarmsNoOtherTrap) {
  std::string longer = NotificationBytes("c", {LongestOid("128")}, {"x"});
  longer[longer.rfind('\x81')] = '\x01';  // makes two subidentifiers of the last one
  const UdpSender sender(Listener().Port());
  sender.Send(longer);
  sender.Send(NotificationBytes("other", {"1.3.6"}, {"x"}));
  EXPECT_TRUE(WaitUntil([&] { return !traps_.empty() && traps_.back().Community == "other"; }));
}

TEST_F(ExtremeTrapTest, EveryInformOfAFloodIsAnsweredWhileTheLoopTurns) {
  constexpr std::size_t kInforms = 5000;
  constexpr std::size_t kAhead = 100;
  const UdpSender sender(Listener().Port());
  std::size_t answers = 0;
  const auto answered = [&](std::size_t count) {
    answers += sender.TakeAnswers();
    return answers >= count;
  };
  for (std::size_t sent = 1; sent <= kInforms; ++sent) {
    sender.Send(AsInform(NotificationBytes("flood", {}, {}), "flood"));
    ASSERT_TRUE(WaitUntil([&] { return answered(std::max(sent, kAhead) - kAhead); }));
  }
  EXPECT_TRUE(WaitUntil([&] { return answered(kInforms); }));
  EXPECT_TRUE(WaitForTraps(kInforms));
  EXPECT_EQ(answers, kInforms);
  EXPECT_EQ(Listener().Counters().answeredInforms, kInforms);
}

}  // namespace
}  // namespace sentrel::test
