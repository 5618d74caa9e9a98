#include "snmp/version3_users.h"

#include <optional>
#include <sstream>

#include "snmp/net_snmp.h"
#include "snmp/version3_keys.h"

namespace sentrel {
namespace {

/// Unambiguous, as the length of the engine ID comes first.
std::string Key(std::string_view engine, std::string_view user) {
  std::string key(1, static_cast<char>(engine.size()));
  return key.append(engine).append(user);
}

SecurityLevel LevelOfKeys(const usmUser& user) {
  if (user.authKeyLen == 0) return SecurityLevel::kNoAuthNoPriv;
  return user.privKeyLen == 0 ? SecurityLevel::kAuthNoPriv : SecurityLevel::kAuthPriv;
}

std::optional<SecurityLevel> LevelNamed(std::string_view name) {
  if (name == "noauth") return SecurityLevel::kNoAuthNoPriv;
  if (name == "auth") return SecurityLevel::kAuthNoPriv;
  if (name == "priv") return SecurityLevel::kAuthPriv;
  return std::nullopt;
}

}  // namespace

void TakeAuthUser(std::string_view line, LeastLevels& levels) {
  std::istringstream text{std::string(line)};
  std::vector<std::string> words;
  for (std::string word; text >> word;) words.push_back(word);
  if (words.size() > 2 && words[1] == "-s") {
    if (words[2] != "usm") return;
    words.erase(words.begin() + 1, words.begin() + 3);
  }
  if (words.size() != 2 && words.size() != 3) return;
  const auto level = LevelNamed(words.size() == 3 ? words[2] : "auth");
  if (level) levels[words[1]] = *level;
}

Version3Users::Version3Users(std::string_view ownEngine, const LeastLevels& levels) {
  engines_.emplace(ownEngine);
  for (const usmUser* user = usm_get_userList(); user != nullptr; user = user->next) {
    if (user->name == nullptr) continue;
    const std::string engine(reinterpret_cast<const char*>(user->engineID), user->engineIDLen);
    const auto told = levels.find(std::string_view(user->name));
    const SecurityLevel least = told == levels.end() ? LevelOfKeys(*user) : told->second;
    engines_.insert(engine);
    users_[Key(engine, user->name)] = least;
    Version3User& description = descriptions_.emplace_back(DescriptionOf(*user));
    description.leastLevel = least;
    description.isFromFile = true;
  }
}

const SecurityLevel* Version3Users::Find(std::string_view engine, std::string_view user) const {
  const auto found = users_.find(Key(engine, user));
  return found == users_.end() ? nullptr : &found->second;
}

}  // namespace sentrel
