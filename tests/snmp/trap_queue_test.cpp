#include "snmp/trap_queue.h"

#include <gtest/gtest.h>

#include <string>

namespace sentrel {
namespace {

using Pushed = TrapQueue::Pushed;

Trap Named(const std::string& community) {
  Trap trap;
  trap.Community = community;
  return trap;
}

TEST(TrapQueue, RefusesTheNewestBeyondItsCount) {
  TrapQueue queue({.traps = 2, .bytes = 1 << 20});
  Trap first = Named("1");
  Trap second = Named("2");
  Trap third = Named("3");
  EXPECT_EQ(queue.Push(first), Pushed::kFirst);
  EXPECT_EQ(queue.Push(second), Pushed::kBehindOthers);
  EXPECT_EQ(queue.Push(third), Pushed::kRefused);
  EXPECT_EQ(third.Community, "3") << "a refused trap stays with its owner";
  std::vector<Trap> taken;
  queue.Take(1, taken);
  ASSERT_EQ(taken.size(), 1U);
  EXPECT_EQ(taken[0].Community, "1");
  EXPECT_EQ(queue.Push(third), Pushed::kBehindOthers);
  queue.Take(9, taken);
  ASSERT_EQ(taken.size(), 2U);
  EXPECT_EQ(taken[1].Community, "3");
  EXPECT_EQ(queue.Size(), 0U);
}

TEST(TrapQueue, RefusesBeyondItsBytesAndGivesThemBack) {
  Trap large = Named(std::string(10'000, 'x'));
  TrapQueue queue({.traps = 1'000, .bytes = 2 * MemoryOf(large)});
  const auto push = [&] {
    Trap copy = large;
    return queue.Push(copy);
  };
  EXPECT_EQ(push(), Pushed::kFirst);
  EXPECT_EQ(push(), Pushed::kBehindOthers);
  EXPECT_EQ(push(), Pushed::kRefused);
  std::vector<Trap> taken;
  queue.Take(1, taken);
  EXPECT_EQ(push(), Pushed::kBehindOthers);
  queue.Clear();
  EXPECT_EQ(push(), Pushed::kFirst);
  EXPECT_EQ(push(), Pushed::kBehindOthers);
}

TEST(TrapQueue, GivesUsedMemoryToTheNextTraps) {
  TrapQueue queue({});
  std::vector<Trap> used = {Named(std::string(100, 'x')), Named(std::string(10'000, 'x'))};
  const char* const memory = used[0].Community.data();
  queue.Recycle(used);
  EXPECT_TRUE(used.empty());
  Trap trap = Named("1");
  queue.Push(trap);
  EXPECT_EQ(trap.Community.data(), memory);
  trap = Named("2");
  queue.Push(trap);
  EXPECT_LT(trap.Community.capacity(), 10'000U) << "a large one is not kept";
}

}  // namespace
}  // namespace sentrel
