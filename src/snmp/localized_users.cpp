#include "snmp/localized_users.h"

#include <string_view>
#include <utility>

namespace sentrel {
namespace {

/// Unambiguous, as the length of the engine ID comes first.
std::string Key(std::string_view engine, std::string_view user) {
  std::string key(1, static_cast<char>(engine.size()));
  return key.append(engine).append(user);
}

}  // namespace

void LocalizedUsers::Replace(const std::vector<KeyedUser>& users, const std::string& ownEngine) {
  forAny_.clear();
  told_.clear();
  learned_.clear();
  engines_.clear();
  for (const KeyedUser& user : users) {
    const bool isForAny = user.user.engine.empty();
    const std::string& engine = isForAny ? ownEngine : user.user.engine;
    OwnedUsmUser keys = Localize(user, engine);
    if (!keys) continue;
    if (isForAny) forAny_.emplace(user.user.name, user);
    // One that is told for the engine itself is the better one, wherever it is in the list.
    if (isForAny && told_.contains(Key(engine, user.user.name))) continue;
    engines_.insert(engine);
    told_[Key(engine, user.user.name)] = {std::move(keys), user.user.leastLevel, user.user.engine};
  }
}

const LocalizedUsers::Entry* LocalizedUsers::Find(const std::string& engine,
                                                  const std::string& user) const {
  const std::string key = Key(engine, user);
  if (const auto told = told_.find(key); told != told_.end()) return &told->second;
  const auto learned = learned_.find(key);
  return learned == learned_.end() ? nullptr : &learned->second;
}

const KeyedUser* LocalizedUsers::FindForAny(const std::string& user) const {
  const auto found = forAny_.find(user);
  return found == forAny_.end() ? nullptr : &found->second;
}

LocalizedUsers::Entry& LocalizedUsers::Learn(const KeyedUser& user, const std::string& engine,
                                             OwnedUsmUser keys) {
  if (learned_.size() >= kMostLearned) learned_.clear();
  Entry& entry = learned_[Key(engine, user.user.name)];
  entry = {std::move(keys), user.user.leastLevel, ""};
  return entry;
}

}  // namespace sentrel
