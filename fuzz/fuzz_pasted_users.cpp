// Any text as pasted lines: each user that is taken has a right name, engine and level, and
// passphrases that were in the text.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "settings/pasted_users.h"
#include "settings/version3_names.h"
#include "settings/version3_user_check.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sentrel;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const PastedUsers pasted = ReadPastedUsers(text);
  // Without backslashes and their escapes a passphrase is a part of the text.
  const bool isPlain = text.find('\\') == std::string::npos;
  for (const Version3UserEntry& entry : pasted.users) {
    const Version3User& user = entry.user;
    Require(ProblemOf(entry).empty());
    Require(!user.isFromFile && !user.lastHeard);
    Require(user.leastLevel == LevelOf(user.authentication, user.privacy));
    Require(user.engine.empty() || ReadEngine(EngineText(user.engine)) == user.engine);
    Require(entry.authPassphrase.empty() == (user.authentication == Authentication::kNone));
    Require(entry.privPassphrase.empty() == (user.privacy == Privacy::kNone));
    if (!isPlain) continue;
    Require(text.find(entry.authPassphrase) != std::string::npos);
    Require(text.find(entry.privPassphrase) != std::string::npos);
  }
  for (const std::string& problem : pasted.problems) Require(!problem.empty());
  return 0;
}
