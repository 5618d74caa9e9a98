#include "snmp/trap_queue.h"

#include <gtest/gtest.h>

#include <string>

namespace sentrel {
namespace {

ArrivedTrap Named(const std::string& community) {
  ArrivedTrap trap;
  trap.Assign({.sourceAddress = "192.0.2.7", .community = community});
  return trap;
}

struct TrapQueueTest : testing::Test {
  static bool Push(TrapQueue& queue, const std::string& community) {
    ArrivedTrap trap = Named(community);
    const bool pushed = queue.Push(trap);
    EXPECT_TRUE(pushed || trap.Community() == community) << "a refused trap stays as it is";
    return pushed;
  }
  /// The communities of the batch that is taken next.
  std::string Taken(TrapQueue& queue) {
    queue.Take(batch);
    std::string all;
    for (std::size_t i = 0; i < batch.Size(); ++i) all += batch[i].Community();
    return all;
  }

  TrapBatch batch;
};

TEST_F(TrapQueueTest, HandsOverWhatIsPublishedInOrder) {
  TrapQueue queue({});
  EXPECT_FALSE(queue.Publish()) << "nothing is news";
  Push(queue, "1");
  Push(queue, "2");
  EXPECT_EQ(Taken(queue), "");
  EXPECT_TRUE(queue.Publish());
  Push(queue, "3");
  EXPECT_FALSE(queue.Publish()) << "others wait already";
  EXPECT_EQ(queue.Size(), 3U);
  EXPECT_EQ(Taken(queue), "12");
  EXPECT_EQ(queue.Size(), 1U);
  EXPECT_EQ(Taken(queue), "3");
  EXPECT_EQ(Taken(queue), "");
  EXPECT_EQ(queue.Size(), 0U);
}

TEST_F(TrapQueueTest, RefusesTheNewestBeyondItsCount) {
  TrapQueue queue({.traps = 2, .bytes = 1 << 20});
  EXPECT_TRUE(Push(queue, "1"));
  queue.Publish();
  EXPECT_TRUE(Push(queue, "2"));
  EXPECT_FALSE(Push(queue, "3"));
  EXPECT_EQ(Taken(queue), "1");
  EXPECT_TRUE(Push(queue, "4"));
  EXPECT_FALSE(Push(queue, "5"));
  queue.Publish();
  EXPECT_EQ(Taken(queue), "24");
}

TEST_F(TrapQueueTest, RefusesBeyondItsBytesAndGivesThemBack) {
  const std::string large(10'000, 'x');
  TrapQueue queue({.traps = 1'000, .bytes = 2 * Named(large).Memory()});
  EXPECT_TRUE(Push(queue, large));
  queue.Publish();
  EXPECT_TRUE(Push(queue, large));
  EXPECT_FALSE(Push(queue, large));
  queue.Publish();
  Taken(queue);
  EXPECT_TRUE(Push(queue, large));
  EXPECT_FALSE(Push(queue, large));
  queue.Publish();
  queue.Clear();
  EXPECT_TRUE(Push(queue, large));
  EXPECT_TRUE(Push(queue, large));
}

TEST_F(TrapQueueTest, HoldsTwoHundredThousandUsualTraps) {
  Trap usual{"192.0.2.1", "public", {}, {}, {}};
  usual.OIDs.assign(8, "1.3.6.1.4.1.58213.1.2.3.4.5.6.7");
  usual.DataTypes.assign(8, 4);
  usual.Values.assign(8, "a value of the usual length, or so");
  TrapQueue queue({});
  for (int i = 0; i < 200'000; ++i) {
    ArrivedTrap trap = usual;
    ASSERT_TRUE(queue.Push(trap)) << i;
  }
}

TEST_F(TrapQueueTest, GivesUsedMemoryToTheNextTrapsWithinReason) {
  const auto comesRound = [this](std::size_t size) {
    TrapQueue queue({});
    ArrivedTrap trap = Named(std::string(size, 'x'));
    bool seen = false;
    for (int i = 0; i < 10; ++i) {
      queue.Push(trap);
      queue.Publish();
      queue.Take(batch);
      seen = seen || trap.Memory() > size;
      trap.Assign({});
    }
    return seen;
  };
  EXPECT_TRUE(comesRound(5'000));
  EXPECT_FALSE(comesRound(1'000'000)) << "much memory is not kept for later";
}

}  // namespace
}  // namespace sentrel
