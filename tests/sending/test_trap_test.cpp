#include "sending/test_trap.h"

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

}  // namespace
}  // namespace sentrel
