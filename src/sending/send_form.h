#pragma once

#include <optional>
#include <string>

#include "controls/auto_combo.h"
#include "platform/main_window.h"
#include "platform/message_box.h"
#include "platform/snmp.h"
#include "sending/trap_object.h"

namespace sentrel {

/// Told of what happens to the Send Trap dialog, on the event loop.
class SendFormEvents {
 public:
  virtual ~SendFormEvents() = default;
  /// The dialog is made and not yet shown.
  virtual void Form_Load() = 0;
  /// The size of the inner area is known or has changed.
  virtual void Form_Resize() = 0;
  /// The dialog closes for good; comes once.
  virtual void Form_Unload() = 0;
  virtual void cmdSend_Click() = 0;
  virtual void cmdCancel_Click() = 0;
};

/// The Send Trap dialog as its logic sees it. All but ShowModal is called only while that runs.
class SendFormView {
 public:
  virtual ~SendFormView() = default;
  /// Shows the dialog above the main window, its boxes bound to the controls, and returns when it
  /// has closed. Events go on being handled meanwhile.
  virtual void ShowModal(SendFormEvents& events, AutoCombo& target, AutoCombo& community) = 0;
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

/// The logic of the dialog that asks for a host and a community and sends a trap there.
class SendForm : public SendFormEvents {
 public:
  /// The references must outlive the form.
  SendForm(SendFormView& view, SNMP& snmp, MessageBox& messageBox, Registry& registry);

  /// Lets the user send the trap, as often as it takes. Returns when the dialog has closed.
  void SendTrap(const TrapObject& trap);

  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;
  void cmdSend_Click() override;
  void cmdCancel_Click() override;

 private:
  std::optional<std::string> AddressOfTarget();
  void Send(const std::string& address);
  void TellThatSendFailed();
  void Remember(AutoCombo& combo);

  SendFormView& view_;
  SNMP& snmp_;
  MessageBox& messageBox_;
  AutoCombo target_;
  AutoCombo community_;
  /// Null while no dialog is open.
  const TrapObject* trap_ = nullptr;
};

}  // namespace sentrel
