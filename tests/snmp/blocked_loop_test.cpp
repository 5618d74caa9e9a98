#include <unistd.h>

#include <atomic>

#include "listener_fixture.h"

namespace sentrel::test {
namespace {

const std::filesystem::path kCorpus = CORPUS;
constexpr std::size_t kBlockedTraps = 50'000;  // 10 seconds of 5,000 a second

class BlockedLoopTest : public ListenerTest {
 protected:
  /// Sends and keeps the event loop blocked until the listener has seen them all.
  void SendAndReceive(const std::string& datagram, std::size_t count) {
    const UdpSender sender(Listener().Port());
    constexpr std::size_t kAhead = 256;
    const std::size_t before = Listener().Counters().Received();
    const auto received = [&] { return Listener().Counters().Received() - before; };
    for (std::size_t sent = 0; sent < count; ++sent) {
      // Loopback has no pace of its own: the sender may not outrun the socket's buffer.
      ASSERT_TRUE(WaitBlockedUntil([&] { return sent < received() + kAhead; }));
      sender.Send(datagram);
    }
    ASSERT_TRUE(WaitBlockedUntil([&] { return received() == count; }));
  }
};

TEST_F(BlockedLoopTest, LosesNothingOfTenSecondsOfStorm) {
  Start();
  SendAndReceive(ReadFile(kCorpus / "v2c-no-bindings"), kBlockedTraps);
  EXPECT_EQ(Listener().Counters().Of(Outcome::kAccepted), kBlockedTraps);
  EXPECT_TRUE(traps_.empty());
  EXPECT_TRUE(WaitForTraps(kBlockedTraps));
  EXPECT_EQ(Listener().Counters().Dropped(), 0U);
  EXPECT_EQ(Listener().Counters().systemDrops, 0U);
}

TEST_F(BlockedLoopTest, BurstOfTwoHundredThousandFitsTheQueue) {
  TrapQueue queue{QueueLimits{}};
  Trap storm;
  storm.SourceAddress = "192.0.2.1";
  storm.Community = "public";
  for (int i = 0; i < 8; ++i) {
    storm.OIDs.emplace_back("1.3.6.1.4.1.58213.1.2.3.4.5.6.7");
    storm.DataTypes.push_back(4);
    storm.Values.emplace_back("a value of the usual length, or so");
  }
  for (int i = 0; i < 200'000; ++i) {
    ArrivedTrap trap = storm;
    ASSERT_TRUE(queue.Push(trap)) << i;
  }
}

TEST_F(BlockedLoopTest, FullQueueDropsTheNewestAndCountsIt) {
  Start("", {.traps = 10, .bytes = 1 << 20});
  SendAndReceive(ReadFile(kCorpus / "v2c-no-bindings"), 25);
  const ListenerCounters counters = Listener().Counters();
  EXPECT_EQ(counters.Of(Outcome::kAccepted), 10U);
  EXPECT_EQ(counters.Of(Outcome::kQueueFull), 15U);
  EXPECT_TRUE(WaitForTraps(10));
  // With room again, the next one is taken.
  SendAndReceive(ReadFile(kCorpus / "v2c-no-bindings"), 1);
  EXPECT_TRUE(WaitForTraps(11));
}

TEST_F(BlockedLoopTest, TheEndHandsOnWhatQueueAndSocketHold) {
  const std::string status = "/proc/self/task/" + std::to_string(gettid()) + "/stat";
  const auto asleep = [&] {
    const std::string text = ReadFile(status);
    return text[text.rfind(')') + 2] == 'S';
  };
  // The receiver reads no further until this thread waits for its end.
  std::atomic<bool> ending = false;
  onWake_ = [&] { EXPECT_TRUE(WaitBlockedUntil([&] { return ending && asleep(); })); };
  Start();
  const std::string datagram = ReadFile(kCorpus / "v2c-no-bindings");
  SendAndReceive(datagram, 1);
  const UdpSender sender(Listener().Port());
  for (int i = 0; i < 100; ++i) sender.Send(datagram);
  ending = true;
  Stop();
  EXPECT_EQ(traps_.size(), 101U);
  EXPECT_EQ(Listener().Counters().Of(Outcome::kAccepted), 101U);
}

TEST_F(BlockedLoopTest, InformIsAnsweredButOnlyIfItWasTaken) {
  Start("", {.traps = 1, .bytes = 1 << 20});
  const std::vector<std::string> inform = {"-v2c", "-r0", "-t1", "-c", "c", "HOST", "1", "1.3.6.1"};
  EXPECT_EQ(Send(SNMPINFORM, inform), 0);
  EXPECT_NE(Send(SNMPINFORM, inform), 0) << "the sender must learn that its inform is lost";
  EXPECT_EQ(Listener().Counters().answeredInforms, 1U);
  EXPECT_TRUE(WaitForTraps(1));
  EXPECT_EQ(Send(SNMPINFORM, inform), 0);
}

TEST_F(BlockedLoopTest, DeliverKeepsToItsBudget) {
  Start();
  SendAndReceive(ReadFile(kCorpus / "v2c-no-bindings"), 300);
  // No time at all is one trap's time.
  EXPECT_TRUE(Listener().Deliver(std::chrono::milliseconds(0)));
  EXPECT_EQ(traps_.size(), 1U);
  EXPECT_TRUE(WaitForTraps(300));
  EXPECT_FALSE(Listener().Deliver(std::chrono::milliseconds(0)));
}

}  // namespace
}  // namespace sentrel::test
