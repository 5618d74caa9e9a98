#pragma once

#include <string>

#include "controls/auto_combo.h"
#include "platform/main_window.h"
#include "platform/message_box.h"
#include "platform/snmp.h"
#include "sending/trap_object.h"

namespace sentrel {

/// The Send Trap dialog as its logic sees it. All but ShowModal is called only while that runs.
class SendFormView {
 public:
  virtual ~SendFormView() = default;
  /// Shows the dialog above the main window and returns when it has closed. Events go on being
  /// handled meanwhile.
  virtual void ShowModal() = 0;
  /// The number by which the help key finds its page.
  virtual void SetHelpContext(int number) = 0;
  virtual Area InnerArea() const = 0;
  virtual void FocusTarget() = 0;
  /// The panel that covers the other controls while it is shown.
  virtual void MoveMessage(const Area& area) = 0;
  virtual void ShowMessage(const std::string& caption) = 0;
  virtual void HideMessage() = 0;
  virtual void SetHourglass(bool on) = 0;
  /// Handles the events that are pending, once: the dialog is painted and traps are taken, while
  /// keys and mouse wait.
  virtual void ProcessEvents() = 0;
  virtual void Unload() = 0;
};

/// The logic of the dialog that asks for a host and a community and sends a trap there: one object
/// for each time that the dialog is shown. No handler throws.
class SendForm {
 public:
  /// The references must outlive the form.
  SendForm(SendFormView& view, SNMP& snmp, MessageBox& messageBox, Registry& registry);

  /// Lets the user send the trap, as often as it takes. Returns when the dialog has closed.
  void SendTrap(const TrapObject& trap);

  AutoCombo& Target() { return target_; }
  AutoCombo& Community() { return community_; }

  /// The size of the inner area is known or has changed.
  void Form_Resize();
  /// The dialog closes for good.
  void Form_Unload();
  void cmdSend_Click();
  void cmdCancel_Click();

 private:
  void Form_Load();
  void LookUpAndSend();
  void Send(const std::string& address);
  /// The panel, and the events that wait. Whether the dialog is still open after those.
  bool ShowsAtWork(const std::string& caption);
  void ShowForAnotherTry();
  void TellThatSendFailed();
  void Remember(AutoCombo& combo);

  SendFormView& view_;
  SNMP& snmp_;
  MessageBox& messageBox_;
  AutoCombo target_;
  AutoCombo community_;
  /// Null but for the time from SendTrap to Form_Unload.
  const TrapObject* trap_ = nullptr;
};

}  // namespace sentrel
