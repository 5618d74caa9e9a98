#include "query/trap_subject.h"

#include <gmock/gmock.h>

#include "fakes/fake_mib_library.h"

namespace sentrel::query {
namespace {

using testing::Eq;

TEST(TrapSubjectTest, TellsNamesLabelsAndReadableOctets) {
  FakeMibLibrary mibs;
  mibs.entries = {{"1.3.6.1.6.3.1.1.5.3", {"linkDown", {}}},
                  {"1.3.6.1.4.1.9.1", {"router", {}}},
                  {"1.3.8.1", {"ifOperStatus.1", {{2, "down(2)"}}}}};
  Trap trap;
  trap.SourceAddress = "10.1.2.3";
  trap.Community = "public";
  trap.OIDs = {"1.3.6.1.6.3.1.1.4.1.0", "1.3.8.1", "1.3.8.1", "1.3.8.2", "1.3.6.1.6.3.1.1.4.3.0"};
  trap.DataTypes = {6, 2, 2, 4, 6};
  trap.Values = {"1.3.6.1.6.3.1.1.5.3", "2", "7", "0x53657276657200", "1.3.6.1.4.1.9.1"};
  trap.HexOctets = {3};
  const ArrivedTrap arrived(trap);
  Names names(mibs);
  const TrapSubject subject(arrived, names);
  EXPECT_EQ(subject.Sender(), "10.1.2.3");
  EXPECT_EQ(subject.NotificationName(), "linkDown");
  EXPECT_EQ(subject.DeviceType(), "router");
  const auto bindings = subject.Bindings();
  ASSERT_EQ(bindings.size(), 5U);
  EXPECT_EQ(bindings[0].label, "linkDown");
  EXPECT_EQ(bindings[1].name, "ifOperStatus.1");
  EXPECT_EQ(bindings[1].label, "down");
  EXPECT_EQ(bindings[2].label, "") << "no label for 7";
  EXPECT_EQ(bindings[3].name, "1.3.8.2");
  EXPECT_EQ(bindings[3].value, "Server");
}

TEST(TrapSubjectTest, EndsWellWithListsOfOddLengthsAndWithoutADatabase) {
  FakeMibLibrary mibs;
  mibs.failing = "MakeOIDObject";
  Names names(mibs);
  Trap trap;
  trap.OIDs = {"1.3.6.1.6.3.1.1.4.1.0", "1.3.9"};
  trap.DataTypes = {6};
  trap.Values = {"1.3.6.1.6.3.1.1.5.3"};
  const ArrivedTrap arrived(trap);
  const TrapSubject subject(arrived, names);
  EXPECT_EQ(subject.NotificationName(), "1.3.6.1.6.3.1.1.5.3");
  EXPECT_EQ(subject.Bindings().size(), 1U);
  const ArrivedTrap empty;
  EXPECT_EQ(TrapSubject(empty, names).NotificationOid(), "");
}

}  // namespace
}  // namespace sentrel::query
