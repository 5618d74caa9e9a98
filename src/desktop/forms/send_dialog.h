#pragma once

#include <QDialog>
#include <QLabel>

#include "desktop/forms/auto_combo_box.h"
#include "sending/send_form.h"

namespace sentrel {

/// The Send Trap dialog on the screen, for one trap. Its widgets carry the names of the controls.
class SendDialog : public QDialog, private SendFormView {
  Q_OBJECT
 public:
  /// All must outlive the dialog.
  SendDialog(SNMP& snmp, MessageBox& messageBox, Registry& registry, QWidget* owner);

  /// Shows the dialog and returns when it has closed.
  void SendTrap(const TrapObject& trap) { form_.SendTrap(trap); }

  void done(int result) override;
  /// However the dialog is closed without Send.
  void reject() override { form_.cmdCancel_Click(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void LayOut();

  void ShowModal() override;
  void SetHelpContext(int number) override;
  Area InnerArea() const override;
  void FocusTarget() override;
  void MoveMessage(const Area& area) override;
  void ShowMessage(const std::string& caption) override;
  void HideMessage() override;
  void SetHourglass(bool on) override;
  void ProcessEvents() override;
  void Unload() override;

  SendForm form_;
  AutoComboBox* target_;
  AutoComboBox* community_;
  QLabel* message_;
};

}  // namespace sentrel
