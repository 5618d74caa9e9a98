#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/version3_user_store.h"

namespace sentrel {

/// A line of the table of users. Every text may be shown as it is.
struct Version3UserLine {
  std::string name;
  std::string leastLevel;
  std::string authentication;
  std::string privacy;
  std::string engine;
  std::optional<std::chrono::system_clock::time_point> lastHeard;
  /// Where the user is changed.
  std::string home;
};

/// What the user dialog edits.
struct Version3UserDraft {
  std::string name;
  Authentication authentication = Authentication::kSha256;
  Privacy privacy = Privacy::kAes256;
  /// Empty ones keep what is there, where something is.
  std::string authPassphrase;
  std::string privPassphrase;
  bool hasAuthPassphrase = false;
  bool hasPrivPassphrase = false;
  /// Nothing for what the protocols can do.
  std::optional<SecurityLevel> leastLevel;
  /// As it is typed.
  std::string engine = "any";
};

struct Version3UserButtons {
  bool add = false;
  bool change = false;
  bool remove = false;
};

/// The "Version 3 users" page of the settings dialog, and the dialogs that it opens. Texts are
/// UTF-8. Called on the event loop; throws nothing.
class Version3UsersView {
 public:
  /// What is wrong with what was entered, in a sentence; "" for nothing.
  using DraftCheck = std::function<std::string(const Version3UserDraft&)>;
  using EngineCheck = std::function<std::string(const std::string&)>;

  virtual ~Version3UsersView() = default;
  /// No line is selected afterwards.
  virtual void ShowUsers(const std::vector<Version3UserLine>& lines) = 0;
  /// Counts from 0; nothing if no line is selected.
  virtual std::optional<std::size_t> SelectedUser() const = 0;
  virtual void SelectUser(std::size_t line) = 0;
  /// `add` is for all that does not need a selected user.
  virtual void EnableUserButtons(const Version3UserButtons& enabled) = 0;
  /// What is to be said below the table; "" for nothing.
  virtual void ShowUsersNote(const std::string& note) = 0;

  /// Has the user edit the draft until nothing is wrong with it. Returns false where the user gives
  /// up.
  virtual bool EditUser(Version3UserDraft& draft, const DraftCheck& check) = 0;
  /// The same for an engine ID.
  virtual bool EditEngine(std::string& engine, const EngineCheck& check) = 0;
  /// The plain text of the clipboard, "" for none.
  virtual std::string ClipboardText() const = 0;
};

}  // namespace sentrel
