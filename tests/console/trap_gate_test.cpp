#include "console/trap_gate.h"

#include <gmock/gmock.h>

#include "console/main_form.h"
#include "fakes/fake_console.h"

namespace sentrel {
namespace {

struct TrapGateTest : testing::Test {
  TrapGateTest() { table.SetCols(5); }

  CallLog log;
  FakeMainWindow window{log};
  FakeClock clock;
  FakeLocale locale;
  FakeTimer timer;
  Settings settings;
  Table table;
  RowBuilder rows{settings, table, window, clock, locale};
  TrapGate gate{settings, rows, timer};
  Trap trap{"192.0.2.7", "public", {}, {}, {}};
};

TEST_F(TrapGateTest, AnAcceptedTrapBecomesARowAndRestartsTheTimer) {
  gate.OnTrap(trap);
  EXPECT_EQ(table.Rows(), 2);
  EXPECT_EQ(timer.starts, 1);
  gate.OnTrap(trap);
  EXPECT_EQ(timer.starts, 2);
}

TEST_F(TrapGateTest, APausedProgramLeavesNoTrace) {
  settings.SetPaused(true);
  gate.OnTrap(trap);
  EXPECT_EQ(table.Rows(), 1);
  EXPECT_EQ(timer.starts, 0);
}

TEST_F(TrapGateTest, AFailureWhileTheRowIsBuiltIsContained) {
  table.SetCols(2);  // no room for the community
  gate.OnTrap(trap);
  EXPECT_TRUE(timer.enabled);
}

}  // namespace
}  // namespace sentrel
