#pragma once

#include <gmock/gmock.h>

#include <functional>

#include "fakes/fake_console.h"
#include "fakes/fake_registry.h"
#include "sending/send_form.h"

namespace sentrel {

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
  std::vector<std::string> Run(const std::function<void()>& user) {
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

}  // namespace sentrel
