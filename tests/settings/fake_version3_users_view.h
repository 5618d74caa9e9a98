#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "settings/version3_users_view.h"

namespace sentrel {

/// The page of the version 3 users in memory, with a user who edits as the test says.
class FakeVersion3UsersView : public Version3UsersView {
 public:
  void ShowUsers(const std::vector<Version3UserLine>& newLines) override {
    lines = newLines;
    selected.reset();
  }
  std::optional<std::size_t> SelectedUser() const override { return selected; }
  void SelectUser(std::size_t line) override { selected = line; }
  void EnableUserButtons(const Version3UserButtons& newState) override { enabled = newState; }
  void ShowUsersNote(const std::string& text) override { note = text; }

  bool EditUser(Version3UserDraft& draft, const DraftCheck& check) override {
    offered = draft;
    if (!edit) return false;
    edit(draft);
    problem = check(draft);
    return problem.empty();
  }
  bool EditEngine(std::string& engine, const EngineCheck& check) override {
    offeredEngine = engine;
    engine = typedEngine;
    problem = check(engine);
    return problem.empty();
  }
  std::string ClipboardText() const override { return clipboard; }

  std::vector<Version3UserLine> lines;
  std::optional<std::size_t> selected;
  Version3UserButtons enabled;
  std::string note;
  /// What the user makes of a draft; none for giving up.
  std::function<void(Version3UserDraft&)> edit;
  std::string typedEngine;
  std::string clipboard;
  /// What the dialogs began with, and what the last check said.
  Version3UserDraft offered;
  std::string offeredEngine;
  std::string problem;
};

}  // namespace sentrel
