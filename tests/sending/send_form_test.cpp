#include "send_form_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Calls = std::vector<std::string>;

Calls operator+(Calls calls, const Calls& more) {
  calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

Calls Sending(const std::string& call) {
  return {"message: Sending SNMP Trap ...", "hourglass", "ProcessEvents", "SendTrap " + call};
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
    EXPECT_EQ(messageBox.text, "Please enter a Hostname or IP Address first.");
    EXPECT_EQ(messageBox.title, "Send Trap");
    EXPECT_EQ(messageBox.icon, MessageIcon::Exclamation);
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
            Calls{"ResolveHost noc.example"} + Sending("192.0.2.9  c ") + Calls{"Unload"});
  Run([&] {
    EXPECT_THAT(Target().History(), ElementsAre("noc.example"));
    EXPECT_THAT(Community().History(), ElementsAre(" c "));
    EXPECT_EQ(Target().Text(), "noc.example");
  });
}

TEST_F(SendFormTest, ATargetThatCannotBeResolvedIsNotSentTo) {
  snmp.hosts["v6only.example"] = "2001:db8::1";
  for (const char* target : {"nowhere.example", "1.2.3.256", "v6only.example"}) {
    EXPECT_THAT(Run([&] {
                  SendTo(target);
                  EXPECT_EQ(Target().Text(), target);
                }),
                ElementsAre("ResolveHost " + std::string(target), "MessageBox", "Unload"));
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
    EXPECT_EQ(messageBox.text, "Network unreachable");
    EXPECT_EQ(messageBox.title, "Send Trap Error");
    EXPECT_EQ(messageBox.icon, MessageIcon::Exclamation);
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

TEST_F(SendFormTest, CancelSendsAndRemembersNothing) {
  const auto cancel = [&] {
    Target().SetText("192.0.2.1");
    view.form->cmdCancel_Click();
  };
  EXPECT_THAT(Run(cancel), ElementsAre("Unload"));
  EXPECT_EQ(registry.changes, 0);
}

TEST_F(SendFormTest, ADialogThatClosesAmongThePendingEventsSendsNothing) {
  view.pending = [&] { view.Unload(); };
  EXPECT_THAT(
      Run([&] { SendTo("192.0.2.1"); }),
      ElementsAre("message: Sending SNMP Trap ...", "hourglass", "ProcessEvents", "Unload"));
}

}  // namespace
}  // namespace sentrel
