#include "settings/pasted_statement.h"

#include <algorithm>

#include "common/text.h"
#include "settings/version3_names.h"

namespace sentrel {
namespace {

using namespace pasted;

PastedUser& UserOf(const Version3User& wanted, std::vector<PastedUser>& users) {
  const auto found = std::find_if(users.begin(), users.end(), [&](const PastedUser& known) {
    return known.entry.user.name == wanted.name && known.entry.user.engine == wanted.engine;
  });
  if (found != users.end()) return *found;
  users.push_back(
      {.entry = {.user = wanted, .authPassphrase = "", .privPassphrase = ""}, .problem = ""});
  return users.back();
}

/// The passphrase behind "authentication-password" or "privacy-password".
std::string TakePassphrase(PastedWords& words, const char* keyword, PastedUser& user) {
  const bool isPassphrase = words.TakeIf(keyword);
  if (!isPassphrase) words.Take();
  std::string secret = words.Take().text;
  if (!isPassphrase || secret.starts_with("$9$")) user.problem = kHashed;
  return secret;
}

void ReadProtocol(PastedWords& words, PastedUser& user) {
  const std::string statement = UpperCase(words.Take().text);
  const auto dash = statement.find('-');
  const std::string name = dash == std::string::npos ? "" : statement.substr(dash + 1);
  if (name == "NONE") return;
  if (statement.starts_with("AUTHENTICATION-")) {
    const auto protocol = AuthenticationNamed(name);
    if (!protocol) user.problem = kUnknownAuthentication;
    user.entry.user.authentication = protocol.value_or(Authentication::kNone);
    user.entry.authPassphrase = TakePassphrase(words, "authentication-password", user);
  } else if (statement.starts_with("PRIVACY-")) {
    const auto protocol = PrivacyNamed(name);
    if (!protocol) user.problem = kUnknownPrivacy;
    user.entry.user.privacy = protocol.value_or(Privacy::kNone);
    user.entry.privPassphrase = TakePassphrase(words, "privacy-password", user);
  } else {
    user.problem = kUnknownWords;
  }
}

}  // namespace

void ReadStatement(PastedWords words, std::vector<PastedUser>& users) {
  Version3User wanted;
  std::string problem;
  if (!words.TakeIf("local-engine")) {
    if (!words.TakeIf("remote-engine")) return;
    const auto engine = ReadEngine(words.Take().text);
    if (!engine || engine->empty()) problem = kBadEngine;
    wanted.engine = engine.value_or("");
  }
  if (!words.TakeIf("user")) return;
  wanted.name = words.Take().text;
  PastedUser& user = UserOf(wanted, users);
  if (!words.AtEnd()) ReadProtocol(words, user);
  if (!problem.empty()) user.problem = problem;
  if (!words.AtEnd() && user.problem.empty()) user.problem = kUnknownWords;
  user.entry.user.leastLevel = LevelOf(user.entry.user.authentication, user.entry.user.privacy);
}

}  // namespace sentrel
