#include "settings/pasted_command.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>

#include "common/text.h"
#include "settings/version3_names.h"

namespace sentrel {
namespace {

using namespace pasted;

void ReadEngineOf(PastedUser& user, const PastedWord& word) {
  const auto engine = ReadEngine(word.text);
  if (!engine || engine->empty()) user.problem = kBadEngine;
  if (engine) user.entry.user.engine = *engine;
}

bool AnnouncesKey(PastedWords& words) {
  return words.TakeIf("-m") || words.TakeIf("-l");
}

bool IsAny(const PastedWord& word, std::initializer_list<const char*> keywords) {
  return std::any_of(keywords.begin(), keywords.end(),
                     [&](const char* keyword) { return word.Is(keyword); });
}

bool TakeAnyIf(PastedWords& words, std::initializer_list<const char*> keywords) {
  const bool isAny = !words.AtEnd() && IsAny(words.Peek(), keywords);
  if (isAny) words.Take();
  return isAny;
}

/// The rest of a word such as "auth-sha", of which some devices have one where others have two.
std::optional<std::string> TakeJoined(PastedWords& words, const std::string& head) {
  if (words.AtEnd()) return std::nullopt;
  const PastedWord& word = words.Peek();
  if (word.text.size() <= head.size()) return std::nullopt;
  if (!PastedWord{word.text.substr(0, head.size()), word.isQuoted}.Is(head)) return std::nullopt;
  return words.Take().text.substr(head.size());
}

/// A passphrase, perhaps behind the number that tells how it is written: 0 for as it was typed.
std::string TakeSecret(PastedWords& words, PastedUser& user) {
  PastedWord word = words.Take();
  const bool isKind = !word.isQuoted && word.text.size() == 1 && word.text[0] >= '0' &&
                      word.text[0] <= '9' && !words.AtEnd();
  if (!isKind) return word.text;
  if (word.text != "0") user.problem = kHashed;
  return words.Take().text;
}

/// "256" and its like, which some devices have behind the protocol.
std::string TakeBits(PastedWords& words) {
  for (const char* bits : {"128", "192", "224", "256", "384", "512"})
    if (words.TakeIf(bits)) return bits;
  return "";
}

void ReadAuthentication(PastedUser& user, std::string name, PastedWords& words) {
  if (UpperCase(name) == "NONE" || UpperCase(name) == "NOAUTH") return;
  if (UpperCase(name).ends_with("-KEY")) user.problem = kHashed;
  if (UpperCase(name) == "SHA-2" || UpperCase(name) == "SHA2") name = "SHA" + TakeBits(words);
  const auto protocol = AuthenticationNamed(name);
  if (!protocol && user.problem.empty()) user.problem = kUnknownAuthentication;
  user.entry.user.authentication = protocol.value_or(Authentication::kNone);
  user.entry.authPassphrase = TakeSecret(words, user);
}

/// Whether the word before the next one was a passphrase.
bool IsBehindSecret(const PastedWords& words) {
  return words.AtEnd() ||
         IsAny(words.Peek(), {"access", "acl", "engineid", "localizedkey", "localizedv2key"});
}

/// A device takes DES where its command names no protocol.
void ReadPrivacy(PastedUser& user, const std::string& name, PastedWords& words) {
  if (UpperCase(name) == "NONE" || UpperCase(name) == "NOPRIV") return;
  if (UpperCase(name).ends_with("-KEY")) user.problem = kHashed;
  const auto protocol = PrivacyNamed(name + TakeBits(words));
  if (!protocol && IsBehindSecret(words)) {
    user.entry.user.privacy = Privacy::kDes;
    user.entry.privPassphrase = name;
    return;
  }
  if (!protocol && user.problem.empty()) user.problem = kUnknownPrivacy;
  user.entry.user.privacy = protocol.value_or(Privacy::kNone);
  user.entry.privPassphrase = TakeSecret(words, user);
}

/// Many devices make long keys in the other way. Where both ways make the same key, the common name
/// is the plainer one.
void TakeDevicesKeyForm(Version3User& user) {
  const auto other = OtherKeyForm(user.authentication, user.privacy);
  const bool isCommon = user.privacy == Privacy::kAes192 || user.privacy == Privacy::kAes256;
  if (other && isCommon) user.privacy = *other;
}

/// Reads what begins with the next word. Returns false at the end of what counts.
bool ReadPart(PastedUser& user, PastedWords& words) {
  if (words.AtEnd() || TakeAnyIf(words, {"access", "acl", "view", "vrf"})) return false;
  if (TakeAnyIf(words, {"encrypted", "localized", "localizedkey", "localizedv2key", "cipher"})) {
    user.problem = kHashed;
  } else if (TakeAnyIf(words, {"remote", "udp-port", "user-role"})) {
    words.Take();
  } else if (words.TakeIf("engineid")) {
    ReadEngineOf(user, words.Take());
  } else if (TakeAnyIf(words, {"auth", "authentication-mode"})) {
    ReadAuthentication(user, words.Take().text, words);
  } else if (TakeAnyIf(words, {"priv", "privacy-mode"})) {
    ReadPrivacy(user, words.Take().text, words);
  } else if (const auto authentication = TakeJoined(words, "auth-")) {
    ReadAuthentication(user, *authentication, words);
  } else if (const auto privacy = TakeJoined(words, "priv-")) {
    ReadPrivacy(user, *privacy, words);
  } else if (!TakeAnyIf(words, {"simple", "v3"})) {
    // A group comes first of all; a word behind a passphrase may well belong to that.
    const bool isGroup = user.entry.user.authentication == Authentication::kNone;
    if (!isGroup && user.problem.empty()) user.problem = kUnknownWords;
    words.Take();
  }
  return true;
}

}  // namespace

PastedUser ReadCreateUser(PastedWords words) {
  PastedUser user;
  Version3User& created = user.entry.user;
  if (words.TakeIf("-e")) ReadEngineOf(user, words.Take());
  created.name = words.Take().text;
  if (!words.AtEnd()) {
    const auto protocol = AuthenticationNamed(words.Take().text);
    if (!protocol) return {user.entry, kUnknownAuthentication};
    if (AnnouncesKey(words)) return {user.entry, kHashed};
    created.authentication = *protocol;
    user.entry.authPassphrase = words.Take().text;
  }
  if (!words.AtEnd()) {
    const auto protocol = PrivacyNamed(words.Take().text);
    if (!protocol) return {user.entry, kUnknownPrivacy};
    if (AnnouncesKey(words)) return {user.entry, kHashed};
    created.privacy = *protocol;
    user.entry.privPassphrase = words.AtEnd() ? user.entry.authPassphrase : words.Take().text;
  }
  if (!words.AtEnd()) user.problem = kUnknownWords;
  created.leastLevel = LevelOf(created.authentication, created.privacy);
  return user;
}

PastedUser ReadDeviceCommand(PastedWords words) {
  PastedUser user;
  user.entry.user.name = words.Take().text;
  while (ReadPart(user, words)) continue;
  TakeDevicesKeyForm(user.entry.user);
  user.entry.user.leastLevel = LevelOf(user.entry.user.authentication, user.entry.user.privacy);
  return user;
}

}  // namespace sentrel
