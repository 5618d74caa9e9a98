#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/version3_user_store.h"

namespace sentrel {

/// What authUser lines say: the least level of a user's messages, by the user's name.
using LeastLevels = std::map<std::string, SecurityLevel, std::less<>>;

/// Takes what follows "authUser" in a line: TYPES [-s MODEL] USER [LEVEL], where LEVEL is noauth,
/// auth (the default) or priv. A line that grants something narrower than a level, or for another
/// security model, is passed over: to take it for more than it says would let strangers in.
void TakeAuthUser(std::string_view line, LeastLevels& levels);

/// The users that the SNMP library knows, found without a walk through its list, and without a
/// trace of those that it does not know. Does not change; for any thread.
class Version3Users {
 public:
  /// From the library's list. A user's messages must be protected as well as the user's keys
  /// allow, where no level is told. `ownEngine` is known even without users.
  Version3Users(std::string_view ownEngine, const LeastLevels& levels);

  /// Whether the engine has users.
  bool HasEngine(const std::string& engine) const { return engines_.contains(engine); }
  /// The least level of the user's messages, null for a stranger. Any byte counts in both texts.
  const SecurityLevel* Find(std::string_view engine, std::string_view user) const;
  /// For people.
  const std::vector<Version3User>& Descriptions() const { return descriptions_; }

 private:
  std::unordered_set<std::string> engines_;
  std::unordered_map<std::string, SecurityLevel> users_;
  std::vector<Version3User> descriptions_;
};

}  // namespace sentrel
