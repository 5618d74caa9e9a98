#pragma once

#include <gmock/gmock.h>

#include <functional>

#include "fakes/fake_console.h"
#include "fakes/fake_registry.h"
#include "sending/send_form.h"

namespace sentrel {

/// A dialog of 300 by 200 whose user is a function.
class FakeSendFormView : public SendFormView {
 public:
  explicit FakeSendFormView(CallLog& log) : log_(log) {}

  void ShowModal(SendFormEvents& form, AutoCombo& targetBox, AutoCombo& communityBox) override {
    events = &form;
    target = &targetBox;
    community = &communityBox;
    open = true;
    events->Form_Load();
    events->Form_Resize();
    log_.Note("shown");
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
    events->Form_Unload();
  }

  std::function<void()> user = [] {};
  /// What happens while pending events are handled.
  std::function<void()> pending;
  SendFormEvents* events = nullptr;
  AutoCombo* target = nullptr;
  AutoCombo* community = nullptr;
  int helpContext = 0;
  Area message;
  bool open = false;

 private:
  CallLog& log_;
};

struct SendFormTest : testing::Test {
  /// Shows the dialog to a user and returns what was called from then on.
  std::vector<std::string> Run(const std::function<void()>& user) {
    calls.calls.clear();
    view.user = [&, user] {
      calls.calls.clear();
      user();
    };
    form.SendTrap(trap);
    return calls.calls;
  }
  void SendTo(const std::string& target, const std::string& community = "public") {
    view.target->SetText(target);
    view.community->SetText(community);
    view.events->cmdSend_Click();
  }

  CallLog calls;
  FakeSendFormView view{calls};
  FakeSNMP snmp{calls};
  FakeMessageBox messageBox{calls};
  FakeRegistry registry;
  SendForm form{view, snmp, messageBox, registry};
  TrapObject trap;
};

}  // namespace sentrel
