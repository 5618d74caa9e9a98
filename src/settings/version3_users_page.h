#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/message_box.h"
#include "platform/version3_user_store.h"
#include "settings/version3_users_view.h"

namespace sentrel {

/// The "Version 3 users" page of the settings dialog without its widgets. All changes are its own
/// until Save. A passphrase goes from the view to the store, and never back. Used on the event loop
/// only.
class Version3UsersPage {
 public:
  /// All must outlive this object.
  Version3UsersPage(Version3UserStore& store, MessageBox& messageBox, Version3UsersView& view)
      : store_(store), messageBox_(messageBox), view_(view) {}

  /// Where the users cannot be read, the page says so, and has nothing that could be changed.
  void Load();
  void SelectionChanged();
  void Add();
  /// Of users from a file it says where they are changed.
  void Change();
  void Remove();
  /// Asks for the engine, which Save forgets.
  void ForgetEngine();
  /// Takes the users of the lines in the clipboard, in the place of those of the same name and
  /// engine.
  void Paste();
  /// Forgets the engines, then replaces the users, each only if there is something to do. Returns
  /// why it could not, in a sentence; "" where it could. A failure leaves the stored users as they
  /// were; engines that are forgotten by then stay forgotten, which loses nothing that the user
  /// wanted kept.
  std::string Save();

 private:
  struct Row {
    Version3UserEntry entry;
    /// As the store has it, where the row comes from there.
    std::optional<Version3User> stored;
  };

  static Version3UserLine LineOf(const Version3User& user);
  static Version3UserDraft DraftOf(const Row& row);
  /// The row with what the draft says, or the problem with it.
  std::string Apply(const Version3UserDraft& draft, Row& row) const;
  /// Opens the dialog on a row; `place` is its number, or that of the new row.
  void Edit(Row row, std::size_t place);
  /// Replaces the user of the same name and engine. Returns false where that one is from a file.
  bool Put(const Version3UserEntry& entry);
  std::optional<std::size_t> Find(const Version3User& user) const;
  void Show();
  void ShowNote();
  std::string NoteOfSelected() const;

  Version3UserStore& store_;
  MessageBox& messageBox_;
  Version3UsersView& view_;
  std::vector<Row> rows_;
  /// Why the users could not be read.
  std::string unreadable_;
  /// What the last paste has to say.
  std::string pasteNote_;
  std::vector<std::string> forgotten_;
  bool changed_ = false;
};

}  // namespace sentrel
