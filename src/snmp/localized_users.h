#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "snmp/version3_keys.h"

namespace sentrel {

/// The users of the Version3UserKeeper with the keys of the engines that they are heard from. They
/// are not in the SNMP library's list, through which it walks for each message. Belongs to the
/// thread that parses.
class LocalizedUsers {
 public:
  /// Where so many have been learned, all are forgotten and computed again as they are heard. What
  /// the engines have told of their time is not kept here and stays.
  static constexpr std::size_t kMostLearned = 10'000;

  struct Entry {
    OwnedUsmUser keys;
    SecurityLevel leastLevel;
    /// Of the user as people have told it: empty for any.
    std::string toldEngine;
  };

  /// Users of any engine are localized to `ownEngine`, for informs. Forgets all that was learned.
  void Replace(const std::vector<KeyedUser>& users, const std::string& ownEngine);

  /// Whether a user of this very engine is told.
  bool HasEngine(const std::string& engine) const { return engines_.contains(engine); }
  /// Null where the user was neither told nor learned.
  const Entry* Find(const std::string& engine, const std::string& user) const;
  /// Null where there is no user of any engine with this name.
  const KeyedUser* FindForAny(const std::string& user) const;
  bool HasUserForAny() const { return !forAny_.empty(); }
  /// A message of the engine has shown that it has the user's keys.
  Entry& Learn(const KeyedUser& user, const std::string& engine, OwnedUsmUser keys);

 private:
  std::unordered_map<std::string, KeyedUser> forAny_;
  std::unordered_map<std::string, Entry> told_;
  std::unordered_map<std::string, Entry> learned_;
  std::unordered_set<std::string> engines_;
};

/// Puts a user into the SNMP library's list for as long as this lives.
class LentUser {
 public:
  explicit LentUser(usmUser& user) : user_(user) { usm_add_user(&user_); }
  ~LentUser() { usm_remove_user(&user_); }
  LentUser(const LentUser&) = delete;
  LentUser& operator=(const LentUser&) = delete;

 private:
  usmUser& user_;
};

}  // namespace sentrel
