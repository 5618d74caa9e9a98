#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QWidget>

#include "settings/version3_users_page.h"

namespace sentrel {

/// The "Version 3 users" page on the screen, with the dialogs that it opens.
class Version3UsersTab : public QWidget, private Version3UsersView {
  Q_OBJECT
 public:
  /// Both must outlive it.
  Version3UsersTab(Version3UserStore& store, MessageBox& messageBox);

  Version3UsersPage& Page() { return page_; }

 private:
  void MakeTable();
  QPushButton* Button(const char* name, const QString& caption, void (Version3UsersPage::*step)());

  void ShowUsers(const std::vector<Version3UserLine>& lines) override;
  std::optional<std::size_t> SelectedUser() const override;
  void SelectUser(std::size_t line) override;
  void EnableUserButtons(const Version3UserButtons& enabled) override;
  void ShowUsersNote(const std::string& note) override;
  bool EditUser(Version3UserDraft& draft, const DraftCheck& check) override;
  bool EditEngine(std::string& engine, const EngineCheck& check) override;
  std::string ClipboardText() const override;

  Version3UsersPage page_;
  QTableWidget* table_;
  QLabel* note_;
  QPushButton* add_;
  QPushButton* change_;
  QPushButton* remove_;
  QPushButton* paste_;
  QPushButton* forget_;
};

}  // namespace sentrel
