#include "sending/test_trap.h"

#include "common/failure.h"
#include "fakes/fake_trap_writer.h"
#include "send_form_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

struct TestTrapTest : SendFormTest {
  FakeClock clock;
  FakeLocale locale;
  TestTrap command{snmp, clock, locale, [this](const TrapObject& made) { Show(made); }};
};

TEST_F(TestTrapTest, HasItsFourBindingsAndTheTimeOfTheCommand) {
  view.user = [&] {
    clock.now.hour = 3;  // it is the time of the command that counts, not of Send
    SendTo("192.0.2.1", "private");
  };
  command.SendTestTrap();
  EXPECT_THAT(calls.calls, testing::Contains("SendTrap 192.0.2.1 private"));
  EXPECT_THAT(snmp.sentOids, ElementsAre("1.3.6.1.2.1.1.3.0", "1.3.6.1.6.3.1.1.4.1.0",
                                         "1.3.6.1.6.3.1.1.4.3.0", "1.3.6.1.4.1.58213.10.1"));
  EXPECT_THAT(snmp.sentTypes, ElementsAre(67, 6, 6, 4));
  EXPECT_THAT(snmp.sentValues, ElementsAre("0", "1.3.6.1.4.1.58213.10", "1.3.6.1.4.1.58213",
                                           "Test trap at 03:49 PM"));
  locale.texts.pm = "";
  clock.now.hour = 15;
  command.SendTestTrap();
  EXPECT_EQ(snmp.sentValues.back(), "Test trap at 15:49");
}

TEST(TrapObject, SavesWhatItHolds) {
  TrapObject trap;
  trap.SetStationText1("noc");
  trap.SetStationText2("Linux");
  trap.SetSourceIP("192.0.2.7");
  trap.SetTrapCommunity("public");
  trap.VarBinds().AddVarBind("1.3.6.1.1", 2, "-1");
  trap.VarBinds().AddVarBind("1.3.6.1.2", 4, "");
  EXPECT_THROW(trap.VarBinds().AddVarBind("1.3.6.1.3", 65536, "x"), Failure);
  FakeTrapWriter writer;
  trap.SaveToFile("a.Trap", writer);
  const SavedTrap& saved = writer.files.at("a.Trap");
  EXPECT_EQ(saved.StationText1 + saved.StationText2, "nocLinux");
  EXPECT_EQ(saved.SourceIP, "192.0.2.7");
  EXPECT_EQ(saved.TrapCommunity, "public");
  EXPECT_THAT(saved.OIDs, ElementsAre("1.3.6.1.1", "1.3.6.1.2"));
  EXPECT_THAT(saved.DataTypes, ElementsAre(2, 4));
  EXPECT_THAT(saved.Values, ElementsAre("-1", ""));
  EXPECT_THROW(trap.SaveToFile("", writer), Failure);
}

}  // namespace
}  // namespace sentrel
