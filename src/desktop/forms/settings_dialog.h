#pragma once

#include <QDialog>
#include <QTabWidget>

#include "desktop/forms/version3_users_tab.h"
#include "settings/settings_form.h"

namespace sentrel {

/// The settings dialog on the screen. Its widgets carry the names of the controls.
class SettingsDialog : public QDialog, private SettingsView {
  Q_OBJECT
 public:
  /// Loads the dialog; exec() shows it. All must outlive it.
  SettingsDialog(Settings& settings, MessageBox& messageBox, FileDialog& fileDialog,
                 const LogFile& logFile, Version3UserStore& version3Users, QWidget* owner);

  SettingsForm& Form() { return form_; }

  /// However the dialog is closed without OK.
  void reject() override { form_.cmdCancel_Click(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ConnectChecks();
  void ConnectButtons();
  void ConnectLogFilename();
  /// Whether the key press in the box is to be swallowed.
  bool TakesKey(const QString& box, char32_t key);
  void ConnectList(SettingsList list, SettingsButton removeButton, void (SettingsForm::*selected)(),
                   void (SettingsForm::*remove)());
  template <typename Widget>
  Widget& Find(SettingsControl control) const {
    return *findChild<Widget*>(control.name);
  }

  void SetHelpContext(int number) override;
  void SelectTab(int tab) override;
  void Close() override;
  void SetVisible(SettingsControl control, bool visible) override;
  void SetEnabled(SettingsControl control, bool enabled) override;
  void SetFocus(SettingsControl control) override;
  bool Checked(SettingsCheck check) const override;
  void SetChecked(SettingsCheck check, bool checked) override;
  std::string Text(SettingsText box) const override;
  void SetText(SettingsText box, const std::string& text) override;
  void SelectText(SettingsText box) override;
  std::vector<std::string> Lines(SettingsList list) const override;
  void AddLine(SettingsList list, const std::string& line) override;
  void RemoveLine(SettingsList list, std::size_t index) override;
  void ClearLines(SettingsList list) override;
  std::optional<std::size_t> SelectedLine(SettingsList list) const override;

  Version3UsersTab* version3Users_;
  QTabWidget* tabs_;
  SettingsForm form_;
};

}  // namespace sentrel
