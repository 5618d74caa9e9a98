#include "sending/send_form.h"

#include <gmock/gmock.h>

#include <functional>

#include "fakes/fake_console.h"
#include "fakes/fake_registry.h"
#include "sending/test_trap.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Calls = std::vector<std::string>;

/// A dialog of 300 by 200 whose user is a function.
class FakeSendFormView : public SendFormView, protected Noting {
 public:
  using Noting::Noting;

  void ShowModal() override {
    open = true;
    form->Form_Resize();
    user();
    if (open) Unload();
  }
  void SetHelpContext(int number) override { helpContext = number; }
  Area InnerArea() const override { return {5, 5, 300, 200}; }
  void FocusTarget() override { log_.Note("FocusTarget"); }
  void MoveMessage(const Area& area) override {
    message = area;
    log_.Note("MoveMessage");
  }
  void ShowMessage(const std::string& caption) override { log_.Note("message: " + caption); }
  void HideMessage() override { log_.Note("HideMessage"); }
  void SetHourglass(bool on) override { log_.Note(on ? "hourglass" : "arrow"); }
  void ProcessEvents() override {
    log_.Note("ProcessEvents");
    if (pending) pending();
  }
  void Unload() override {
    open = false;
    log_.Note("Unload");
    form->Form_Unload();
  }

  std::function<void()> user = [] {};
  /// What happens while pending events are handled.
  std::function<void()> pending;
  SendForm* form = nullptr;
  int helpContext = 0;
  Area message;
  bool open = false;
};

struct SendFormTest : testing::Test {
  /// Shows the dialog to a user and returns what was called from then on.
  Calls Run(const std::function<void()>& user) {
    view.user = [&, user] {
      calls.calls.clear();
      user();
    };
    Show(trap);
    return calls.calls;
  }
  void Show(const TrapObject& object) {
    SendForm made(view, snmp, messageBox, registry);
    view.form = &made;
    made.SendTrap(object);
  }
  void SendTo(const std::string& target, const std::string& community = "public") {
    Target().SetText(target);
    Community().SetText(community);
    view.form->cmdSend_Click();
  }
  AutoCombo& Target() { return view.form->Target(); }
  AutoCombo& Community() { return view.form->Community(); }

  CallLog calls;
  FakeSendFormView view{calls};
  FakeSNMP snmp{calls};
  FakeMessageBox messageBox{calls};
  FakeRegistry registry;
  TrapObject trap;
};

Calls operator+(Calls calls, const Calls& more) {
  calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

Calls AtWork(const std::string& caption, const std::string& call) {
  return {"message: " + caption, "hourglass", "ProcessEvents", call};
}
Calls Sending(const std::string& call) {
  return AtWork("Sending SNMP Trap ...", "SendTrap " + call);
}
Calls LookingUp(const std::string& name) {
  return AtWork("Looking up the host name ...", "ResolveHost " + name);
}

const Calls kAfterFailure = {"MessageBox", "HideMessage", "arrow", "FocusTarget"};

TEST_F(SendFormTest, LoadsWithHelpDefaultsAndThePanelInPlace) {
  Run([&] {
    EXPECT_EQ(view.helpContext, 9100);
    EXPECT_EQ(Target().Text(), "");
    EXPECT_EQ(Community().Text(), "public");
    const auto& [left, top, width, height] = view.message;
    EXPECT_EQ(std::tuple(left, top, width, height), std::tuple(0, 0, 300, 200));
  });
  calls.failing = "MoveMessage";
  EXPECT_THAT(Run([] {}), ElementsAre("Unload")) << "a panel that cannot be moved stays";
}

TEST_F(SendFormTest, AnEmptyTargetIsAskedFor) {
  for (const char* target : {"", "   "}) {
    EXPECT_THAT(Run([&] {
                  SendTo(target);
                  EXPECT_EQ(Target().Text(), "");
                }),
                ElementsAre("MessageBox", "FocusTarget", "Unload"));
    EXPECT_EQ(messageBox.Shown(),
              std::tuple("Send Trap", "Please enter a Hostname or IP Address first.",
                         MessageIcon::Exclamation));
  }
}

TEST_F(SendFormTest, SendsToAnAddressAsItStandsAndClosesSilently) {
  EXPECT_EQ(Run([&] { SendTo("  192.0.2.010 ", ""); }), Sending("192.0.2.010 ") + Calls{"Unload"});
  Run([&] {
    EXPECT_EQ(Target().Text(), "192.0.2.010");
    EXPECT_EQ(Community().Text(), "public") << "an empty one is filled in at load only";
    EXPECT_THAT(Community().History(), ElementsAre(""));
  });
}

TEST_F(SendFormTest, ANameIsResolvedAndRemembered) {
  snmp.hosts["noc.example"] = "192.0.2.9";
  EXPECT_EQ(Run([&] { SendTo("noc.example", " c "); }),
            LookingUp("noc.example") + Sending("192.0.2.9  c ") + Calls{"Unload"});
  Run([&] {
    EXPECT_THAT(Target().History(), ElementsAre("noc.example"));
    EXPECT_THAT(Community().History(), ElementsAre(" c "));
    EXPECT_EQ(Target().Text(), "noc.example");
  });
}

TEST_F(SendFormTest, ATargetThatCannotBeResolvedIsNotSentTo) {
  snmp.hosts["v6only.example"] = "2001:db8::1";
  for (const char* target : {"nowhere.example", "1.2.3.256", "v6only.example"}) {
    EXPECT_EQ(Run([&] {
                SendTo(target);
                EXPECT_EQ(Target().Text(), target);
              }),
              LookingUp(target) + kAfterFailure + Calls{"Unload"});
    EXPECT_EQ(messageBox.title, "Send Trap");
    EXPECT_EQ(messageBox.text,
              "SNMP Sentrel was unable to complete the request. Ensure you specified the "
              "appropriate hostname, IP address, community string, and that your firewall allows "
              "SNMP traffic.");
  }
  EXPECT_EQ(registry.changes, 0);
}

TEST_F(SendFormTest, AFailureIsToldAndTheSameTrapCanBeSentAgain) {
  trap.VarBinds().AddVarBind("1.3.6.1", 4, "x");
  snmp.sendResult = -1;
  snmp.statusText = "Network unreachable";
  const Calls made = Run([&] {
    SendTo("192.0.2.1");
    EXPECT_EQ(messageBox.Shown(),
              std::tuple("Send Trap Error", "Network unreachable", MessageIcon::Exclamation));
    snmp.sendResult = 1;
    snmp.statusText = "OK";
    SendTo("192.0.2.1");
    EXPECT_EQ(messageBox.text, "Can't send trap");
    EXPECT_EQ(registry.changes, 0) << "a failed try leaves no trace";
    snmp.sentValues.clear();
    snmp.sendResult = 0;
    SendTo("192.0.2.2");
    EXPECT_THAT(snmp.sentValues, ElementsAre("x"));
  });
  EXPECT_EQ(made, Sending("192.0.2.1 public") + kAfterFailure + Sending("192.0.2.1 public") +
                      kAfterFailure + Sending("192.0.2.2 public") + Calls{"Unload"});
  Run([&] { EXPECT_THAT(Target().History(), ElementsAre("192.0.2.2")); });
}

TEST_F(SendFormTest, ADialogThatClosesAmongThePendingEventsSendsNothing) {
  view.pending = [&] { view.Unload(); };
  for (const char* target : {"192.0.2.1", "noc.example"}) {
    EXPECT_THAT(Run([&] { SendTo(target); }), ElementsAre(testing::StartsWith("message: "),
                                                          "hourglass", "ProcessEvents", "Unload"));
  }
}

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
