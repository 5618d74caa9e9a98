#include <unistd.h>

#include <atomic>

#include "fakes/notification.h"
#include "listener_fixture.h"

namespace sentrel::test {
namespace {

constexpr std::size_t kBlockedTraps = 50'000;  // 10 seconds of 5,000 a second

class BlockedLoopTest : public ListenerTest {
 protected:
  /// Sends and keeps the event loop blocked until the listener has seen them all.
  void SendAndReceive(std::size_t count) {
    UdpSocket sender(Listener().Port());
    constexpr std::size_t kAhead = 256;
    const std::size_t before = Listener().Counters().Received();
    const auto received = [&] { return Listener().Counters().Received() - before; };
    for (std::size_t sent = 0; sent < count; ++sent) {
      // Loopback has no pace of its own: the sender may not outrun the socket's buffer.
      ASSERT_TRUE(WaitBlockedUntil([&] { return sent < received() + kAhead; }));
      sender.Send(trap_);
    }
    ASSERT_TRUE(WaitBlockedUntil([&] { return received() == count; }));
  }

  const std::string trap_ = ReadFile(CORPUS "/v2c-no-bindings");
};

TEST_F(BlockedLoopTest, LosesNothingOfTenSecondsOfStorm) {
  Start();
  SendAndReceive(kBlockedTraps);
  EXPECT_EQ(Count(Outcome::kAccepted), kBlockedTraps);
  EXPECT_TRUE(traps_.empty());
  EXPECT_TRUE(WaitForTraps(kBlockedTraps));
  EXPECT_EQ(Listener().Counters().Dropped(), 0U);
  EXPECT_EQ(Listener().Counters().systemDrops, 0U);
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
  SendAndReceive(1);
  UdpSocket sender(Listener().Port());
  for (int i = 0; i < 100; ++i) sender.Send(trap_);
  ending = true;
  Stop();
  EXPECT_EQ(traps_.size(), 101U);
  EXPECT_EQ(Count(Outcome::kAccepted), 101U);
}

TEST_F(BlockedLoopTest, EveryInformOfAFloodIsAnswered) {
  constexpr std::size_t kInforms = 5'000;
  Start();
  UdpSocket sender(Listener().Port());
  std::size_t answers = 0;
  const auto answered = [&](std::size_t count) {
    return WaitUntil([&] { return (answers += sender.TakeAll()) >= count; });
  };
  for (std::size_t sent = 1; sent <= kInforms; ++sent) {
    sender.Send(AsInform(NotificationBytes("flood", {}, {}), "flood"));
    ASSERT_TRUE(answered(std::max<std::size_t>(sent, 100) - 100));
  }
  EXPECT_TRUE(answered(kInforms));
  EXPECT_TRUE(WaitForTraps(kInforms));
  EXPECT_EQ(Listener().Counters().answeredInforms, kInforms);
}

TEST_F(BlockedLoopTest, DeliverKeepsToItsBudget) {
  Start();
  SendAndReceive(300);
  // No time at all is one trap's time.
  EXPECT_TRUE(Listener().Deliver(std::chrono::milliseconds(0)));
  EXPECT_EQ(traps_.size(), 1U);
  EXPECT_TRUE(WaitForTraps(300));
  EXPECT_FALSE(Listener().Deliver(std::chrono::milliseconds(0)));
}

}  // namespace
}  // namespace sentrel::test
