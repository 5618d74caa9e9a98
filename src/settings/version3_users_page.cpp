#include "settings/version3_users_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "common/failure.h"
#include "common/visible_text.h"
#include "settings/pasted_users.h"
#include "settings/version3_names.h"
#include "settings/version3_user_check.h"

namespace sentrel {
namespace {

constexpr const char* kFileHome = "sentrel.conf";
constexpr const char* kOwnHome = "here";
constexpr const char* kBadEngine =
    "The engine ID is 5 to 32 octets in hexadecimal digits, such as 0x8000000001020304, or "
    "\"any\".";
constexpr const char* kBadForgottenEngine =
    "Please enter the engine ID to forget: 5 to 32 octets in hexadecimal digits.";
constexpr const char* kIsThere = "There is a user of this name and engine ID already.";
constexpr const char* kNothingPasted =
    "The clipboard holds no line that creates a version 3 user.\r\n\r\n"
    "Please copy one first, such as\r\n"
    "createUser NAME SHA-256 \"PASSPHRASE\" AES-256 \"PASSPHRASE\"\r\n"
    "or the line with which the device was set up:\r\n"
    "snmp-server user NAME GROUP v3 auth sha PASSPHRASE priv aes 128 PASSPHRASE";

/// As many as a window has room for.
std::string Listed(const std::vector<std::string>& problems) {
  constexpr std::size_t kMostShown = 8;
  std::string text;
  for (std::size_t i = 0; i < std::min(problems.size(), kMostShown); ++i)
    text += (i == 0 ? "" : "\r\n\r\n") + problems[i];
  if (problems.size() > kMostShown)
    text += fmt::format("\r\n\r\n... and {} more.", problems.size() - kMostShown);
  return text;
}

/// Whether a key of the stored user serves the changed one too: keys belong to a name, an engine
/// and a protocol.
KeptKeys KeptBetween(const Version3User& stored, const Version3User& changed) {
  const bool isSame = stored.name == changed.name && stored.engine == changed.engine &&
                      stored.authentication == changed.authentication;
  return {.authentication = isSame, .privacy = isSame && stored.privacy == changed.privacy};
}

}  // namespace

void Version3UsersPage::Load() {
  rows_.clear();
  forgotten_.clear();
  unreadable_.clear();
  pasteNote_.clear();
  changed_ = false;
  try {
    for (const Version3User& user : store_.Users()) rows_.push_back({{user, "", ""}, user});
  } catch (const Failure& failure) {
    unreadable_ = failure.what();
  }
  Show();
}

Version3UserLine Version3UsersPage::LineOf(const Version3User& user) {
  return {.name = VisibleText(user.name),
          .leastLevel = NameOf(user.leastLevel),
          .authentication = NameOf(user.authentication),
          .privacy = NameOf(user.privacy),
          .engine = EngineText(user.engine),
          .lastHeard = user.lastHeard,
          .home = user.isFromFile ? kFileHome : kOwnHome};
}

void Version3UsersPage::Show() {
  std::vector<Version3UserLine> lines;
  for (const Row& row : rows_) lines.push_back(LineOf(row.entry.user));
  view_.ShowUsers(lines);
  SelectionChanged();
}

void Version3UsersPage::SelectionChanged() {
  const auto selected = view_.SelectedUser();
  const bool isOwn = selected && !rows_[*selected].entry.user.isFromFile;
  view_.EnableUserButtons({.add = unreadable_.empty(), .change = isOwn, .remove = isOwn});
  ShowNote();
}

void Version3UsersPage::ShowNote() {
  std::string note = unreadable_;
  if (!note.empty()) note = "The users cannot be read, and cannot be changed here now. " + note;
  for (const std::string& part : {NoteOfSelected(), pasteNote_})
    if (!part.empty()) note += (note.empty() ? "" : "\r\n") + part;
  for (const std::string& engine : forgotten_)
    note += fmt::format("{}OK forgets the boots and time of {}.", note.empty() ? "" : "\r\n",
                        EngineText(engine));
  view_.ShowUsersNote(note);
}

std::string Version3UsersPage::NoteOfSelected() const {
  const auto selected = view_.SelectedUser();
  if (!selected) return "";
  const Version3User& user = rows_[*selected].entry.user;
  if (user.isFromFile) {
    return fmt::format(
        "{} is in a createUser line of sentrel.conf, in /etc/snmp or ~/.snmp: please change it "
        "there.",
        VisibleText(user.name));
  }
  return KeyFormHint(user.authentication, user.privacy);
}

Version3UserDraft Version3UsersPage::DraftOf(const Row& row) {
  const Version3User& user = row.entry.user;
  const bool isDefault = user.leastLevel == LevelOf(user.authentication, user.privacy);
  const bool hasAuth = user.authentication != Authentication::kNone;
  const bool hasPriv = user.privacy != Privacy::kNone;
  return {.name = user.name,
          .authentication = user.authentication,
          .privacy = user.privacy,
          .authPassphrase = "",
          .privPassphrase = "",
          .hasAuthPassphrase = hasAuth,
          .hasPrivPassphrase = hasPriv,
          .leastLevel = isDefault ? std::nullopt : std::optional(user.leastLevel),
          .engine = EngineText(user.engine)};
}

std::string Version3UsersPage::Apply(const Version3UserDraft& draft, Row& row) const {
  const auto engine = ReadEngine(draft.engine);
  if (!engine) return kBadEngine;
  Version3UserEntry entry = row.entry;
  Version3User& user = entry.user;
  user.name = draft.name;
  user.engine = *engine;
  user.authentication = draft.authentication;
  user.privacy = draft.privacy;
  user.leastLevel = draft.leastLevel.value_or(LevelOf(user.authentication, user.privacy));
  if (!draft.authPassphrase.empty()) entry.authPassphrase = draft.authPassphrase;
  if (!draft.privPassphrase.empty()) entry.privPassphrase = draft.privPassphrase;
  if (user.authentication == Authentication::kNone) entry.authPassphrase.clear();
  if (user.privacy == Privacy::kNone) entry.privPassphrase.clear();
  const KeptKeys kept = row.stored ? KeptBetween(*row.stored, user) : KeptKeys{};
  std::string problem = ProblemOf(entry, kept);
  if (problem.empty()) row.entry = std::move(entry);
  return problem;
}

void Version3UsersPage::Edit(Row row, std::size_t place) {
  const bool isNew = place == rows_.size();
  Version3UserDraft draft = isNew ? Version3UserDraft{} : DraftOf(row);
  const auto check = [&](const Version3UserDraft& entered) -> std::string {
    Row edited = row;
    std::string problem = Apply(entered, edited);
    const auto same = Find(edited.entry.user);
    return problem.empty() && same && *same != place ? kIsThere : problem;
  };
  if (!view_.EditUser(draft, check) || !Apply(draft, row).empty()) return;
  if (isNew) rows_.emplace_back();
  rows_[place] = std::move(row);
  changed_ = true;
  pasteNote_.clear();
  Show();
  view_.SelectUser(place);
}

void Version3UsersPage::Add() {
  Edit({}, rows_.size());
}

void Version3UsersPage::Change() {
  const auto selected = view_.SelectedUser();
  if (selected && !rows_[*selected].entry.user.isFromFile) Edit(rows_[*selected], *selected);
}

void Version3UsersPage::Remove() {
  const auto selected = view_.SelectedUser();
  if (!selected || rows_[*selected].entry.user.isFromFile) return;
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(*selected));
  changed_ = true;
  pasteNote_.clear();
  Show();
}

void Version3UsersPage::ForgetEngine() {
  const auto selected = view_.SelectedUser();
  std::string text;
  if (selected && !rows_[*selected].entry.user.engine.empty())
    text = EngineText(rows_[*selected].entry.user.engine);
  const auto check = [](const std::string& entered) -> std::string {
    return ReadEngine(entered).value_or("").empty() ? kBadForgottenEngine : "";
  };
  if (!view_.EditEngine(text, check)) return;
  const std::string engine = ReadEngine(text).value_or("");
  if (std::find(forgotten_.begin(), forgotten_.end(), engine) == forgotten_.end())
    forgotten_.push_back(engine);
  ShowNote();
}

std::optional<std::size_t> Version3UsersPage::Find(const Version3User& user) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) {
    return row.entry.user.name == user.name && row.entry.user.engine == user.engine;
  });
  if (found == rows_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows_.begin());
}

bool Version3UsersPage::Put(const Version3UserEntry& entry) {
  const auto place = Find(entry.user);
  if (!place) {
    rows_.push_back({entry, std::nullopt});
  } else if (rows_[*place].entry.user.isFromFile) {
    return false;
  } else {
    rows_[*place].entry = entry;
  }
  changed_ = true;
  return true;
}

void Version3UsersPage::Paste() {
  PastedUsers pasted = ReadPastedUsers(view_.ClipboardText());
  if (pasted.users.empty() && pasted.problems.empty()) pasted.problems = {kNothingPasted};
  std::string taken;
  for (const Version3UserEntry& entry : pasted.users) {
    if (Put(entry)) {
      taken += (taken.empty() ? "Taken from the clipboard: " : ", ") + VisibleText(entry.user.name);
    } else {
      pasted.problems.push_back(entry.user.name +
                                ": sentrel.conf has this user; please change it there.");
    }
  }
  pasteNote_ = taken.empty() ? "" : taken + ". They are kept with OK.";
  Show();
  if (!taken.empty()) view_.SelectUser(*Find(pasted.users.back().user));
  if (!pasted.problems.empty()) messageBox_.Show(Listed(pasted.problems), MessageIcon::Exclamation);
}

std::string Version3UsersPage::Save() {
  try {
    while (!forgotten_.empty()) {
      store_.ForgetEngine(forgotten_.back());
      forgotten_.pop_back();
    }
    if (!changed_) return "";
    std::vector<Version3UserEntry> own;
    for (const Row& row : rows_)
      if (!row.entry.user.isFromFile) own.push_back(row.entry);
    store_.Replace(own);
  } catch (const Failure& failure) {
    ShowNote();
    return failure.what();
  }
  return "";
}

}  // namespace sentrel
