#include "snmp/trap_queue.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace sentrel {
namespace {

ArrivedTrap Named(const std::string& community) {
  return Trap{
      .SourceAddress = {}, .Community = community, .OIDs = {}, .DataTypes = {}, .Values = {}};
}

struct TrapQueueTest : testing::Test {
  static bool Push(TrapQueue& queue, const std::string& community) {
    ArrivedTrap trap = Named(community);
    const bool pushed = queue.Push(trap);
    EXPECT_TRUE(pushed || trap.head.Community == community) << "a refused trap stays as it is";
    return pushed;
  }
  /// The communities of the batch that is taken next.
  std::string Taken(TrapQueue& queue) {
    queue.Take(batch);
    std::string all;
    for (std::size_t i = 0; i < batch.Size(); ++i) all += batch[i].head.Community;
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
  TrapQueue queue({.traps = 1'000, .bytes = 2 * MemoryOf(Named(large))});
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

TEST_F(TrapQueueTest, GivesUsedMemoryToTheNextTraps) {
  TrapQueue queue({});
  ArrivedTrap trap;
  std::set<const char*> places;
  for (int i = 0; i < 50; ++i) {
    trap.head.Community.assign(100, 'x');
    queue.Push(trap);
    queue.Publish();
    queue.Take(batch);
    places.insert(batch[0].head.Community.data());
  }
  EXPECT_LE(places.size(), 4U);
}

TEST_F(TrapQueueTest, DoesNotKeepMuchMemoryForLater) {
  TrapQueue queue({});
  Push(queue, std::string(1'000'000, 'x'));
  for (int i = 0; i < 3; ++i) {
    queue.Publish();
    Taken(queue);
    ArrivedTrap trap;
    queue.Push(trap);
    EXPECT_LT(trap.head.Community.capacity(), 1'000'000U);
  }
}

}  // namespace
}  // namespace sentrel
