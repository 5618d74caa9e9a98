#include "snmp/version3_user_keeper.h"

#include <algorithm>
#include <set>

#include "common/failure.h"
#include "snmp/replay_check.h"
#include "snmp/version3_user_file.h"

namespace sentrel {
namespace {

constexpr std::size_t kLongestName = 32;
/// RFC 3411, section 5.
constexpr std::size_t kShortestEngineId = 5;

bool IsSame(const Version3User& a, const Version3User& b) {
  return a.name == b.name && a.engine == b.engine;
}

SecurityLevel HighestLevel(const Version3User& user) {
  if (user.authentication == Authentication::kNone) return SecurityLevel::kNoAuthNoPriv;
  return user.privacy == Privacy::kNone ? SecurityLevel::kAuthNoPriv : SecurityLevel::kAuthPriv;
}

/// Empty where nothing is wrong.
std::string WhatIsWrong(const Version3User& user) {
  if (user.name.empty() || user.name.size() > kLongestName ||
      user.name.find('\0') != std::string::npos) {
    return "A user's name has 1 to 32 bytes.";
  }
  const std::string who = "The user " + user.name;
  if (!user.engine.empty() &&
      (user.engine.size() < kShortestEngineId || user.engine.size() > kLongestEngineId)) {
    return who + " has an engine ID that is not 5 to 32 bytes long.";
  }
  const SecurityLevel highest = HighestLevel(user);
  if (highest == SecurityLevel::kNoAuthNoPriv && user.privacy != Privacy::kNone) {
    return who + " cannot have privacy without authentication.";
  }
  if (user.leastLevel > highest) return who + " has no keys for the least level.";
  if (user.engine.empty() && user.leastLevel == SecurityLevel::kNoAuthNoPriv) {
    return who +
           " is for any engine and so needs authentication: nothing else shows that a "
           "message is genuine.";
  }
  return "";
}

void CheckAll(const std::vector<Version3UserEntry>& entries) {
  std::set<std::pair<std::string, std::string>> known;
  for (const auto& [user, authPassphrase, privPassphrase] : entries) {
    if (const std::string wrong = WhatIsWrong(user); !wrong.empty()) throw Failure(wrong);
    if (!known.emplace(user.name, user.engine).second) {
      throw Failure("The user " + user.name + " is there twice for the same engine.");
    }
  }
}

}  // namespace

Version3UserKeeper::Version3UserKeeper(std::string path) : path_(std::move(path)) {
  Load();
}

void Version3UserKeeper::Load() const {
  if (path_.empty()) return;
  Version3UserFile file = LoadVersion3Users(path_);
  problem_ = file.problem;
  const std::lock_guard lock(mutex_);
  users_ = std::move(file.users);
  changed_ = true;
}

std::vector<Version3User> Version3UserKeeper::Users() const {
  // Somebody may have repaired the file.
  if (!problem_.empty()) Load();
  if (!problem_.empty()) throw Failure(problem_);
  const std::lock_guard lock(mutex_);
  std::vector<Version3User> users = fromFile_;
  users.reserve(fromFile_.size() + users_.size());
  for (const KeyedUser& keyed : users_) users.push_back(keyed.user);
  for (Version3User& user : users) {
    const auto heard = heard_.find({user.name, user.engine});
    if (heard != heard_.end()) user.lastHeard = heard->second;
  }
  return users;
}

KeyedUser Version3UserKeeper::WithKeys(const Version3UserEntry& entry) const {
  const auto before = std::ranges::find_if(
      users_, [&](const KeyedUser& keyed) { return IsSame(keyed.user, entry.user); });
  KeyedUser keyed{entry.user, "", ""};
  keyed.user.lastHeard.reset();
  keyed.user.isFromFile = false;
  const auto key = [&](const std::string& passphrase, bool isSameProtocol,
                       std::string KeyedUser::*kept) {
    if (!passphrase.empty()) return MasterKey(keyed.user.authentication, passphrase);
    const bool isKept = before != users_.end() && isSameProtocol && !((*before).*kept).empty();
    if (!isKept) throw Failure("The user " + keyed.user.name + " needs a passphrase.");
    return (*before).*kept;
  };
  // The hash of the authentication makes both keys.
  const bool isSameHash =
      before != users_.end() && before->user.authentication == keyed.user.authentication;
  if (keyed.user.authentication != Authentication::kNone) {
    keyed.authKey = key(entry.authPassphrase, isSameHash, &KeyedUser::authKey);
  }
  if (keyed.user.privacy != Privacy::kNone) {
    const bool isSame = isSameHash && before->user.privacy == keyed.user.privacy;
    keyed.privKey = key(entry.privPassphrase, isSame, &KeyedUser::privKey);
  }
  return keyed;
}

void Version3UserKeeper::Replace(const std::vector<Version3UserEntry>& entries) {
  if (!problem_.empty()) Load();
  if (!problem_.empty()) throw Failure(problem_);
  CheckAll(entries);
  // Only this thread changes users_, so that it may read them without the lock.
  std::vector<KeyedUser> users;
  users.reserve(entries.size());
  for (const Version3UserEntry& entry : entries) users.push_back(WithKeys(entry));
  if (!path_.empty()) SaveVersion3Users(path_, users);
  const std::lock_guard lock(mutex_);
  users_ = std::move(users);
  changed_ = true;
}

void Version3UserKeeper::ForgetEngine(const std::string& engine) {
  const std::lock_guard lock(mutex_);
  forgotten_.push_back(engine);
  changed_ = true;
}

std::vector<KeyedUser> Version3UserKeeper::Keyed() const {
  const std::lock_guard lock(mutex_);
  return users_;
}

std::vector<std::string> Version3UserKeeper::TakeForgotten() {
  const std::lock_guard lock(mutex_);
  return std::exchange(forgotten_, {});
}

void Version3UserKeeper::SetUsersFromFile(std::vector<Version3User> users) {
  const std::lock_guard lock(mutex_);
  fromFile_ = std::move(users);
}

void Version3UserKeeper::NoteHeard(const std::string& name, const std::string& engine) {
  const std::lock_guard lock(mutex_);
  heard_[{name, engine}] = std::chrono::system_clock::now();
}

}  // namespace sentrel
