#include "settings/version3_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "common/text.h"

namespace sentrel {
namespace {

constexpr std::array kLevels = {"noAuthNoPriv", "authNoPriv", "authPriv"};
constexpr std::array kAuthentications = {"none",    "MD5",     "SHA-1",  "SHA-224",
                                         "SHA-256", "SHA-384", "SHA-512"};
constexpr std::array kPrivacies = {"none",    "DES",       "AES-128",  "AES-192",
                                   "AES-256", "AES-192-C", "AES-256-C"};
constexpr std::size_t kShortestEngine = 5;
constexpr std::size_t kLongestEngine = 32;

/// In upper case, without what spellings differ in.
std::string Squeezed(std::string_view name) {
  std::string squeezed = UpperCase(name);
  std::erase_if(squeezed, [](char c) { return c == '-' || c == '_' || c == '/'; });
  return squeezed;
}

template <typename Protocol, std::size_t size>
std::optional<Protocol> ProtocolNamed(std::string_view name,
                                      const std::array<const char*, size>& names) {
  const auto found = std::find_if(names.begin() + 1, names.end(),
                                  [&](const char* known) { return Squeezed(known) == name; });
  if (found == names.end()) return std::nullopt;
  return static_cast<Protocol>(found - names.begin());
}

/// Octets of the key that the protocol makes of a passphrase.
int KeyLength(Authentication protocol) {
  constexpr std::array kLengths = {0, 16, 20, 28, 32, 48, 64};
  return kLengths[static_cast<std::size_t>(protocol)];
}

}  // namespace

std::string NameOf(SecurityLevel level) {
  return kLevels[static_cast<std::size_t>(level) - 1];
}

std::string NameOf(Authentication protocol) {
  return kAuthentications[static_cast<std::size_t>(protocol)];
}

std::string NameOf(Privacy protocol) {
  return kPrivacies[static_cast<std::size_t>(protocol)];
}

std::optional<Authentication> AuthenticationNamed(std::string_view name) {
  const std::string squeezed = Squeezed(name);
  if (squeezed == "SHA") return Authentication::kSha1;
  return ProtocolNamed<Authentication>(squeezed, kAuthentications);
}

std::optional<Privacy> PrivacyNamed(std::string_view name) {
  const std::string squeezed = Squeezed(name);
  if (squeezed == "AES") return Privacy::kAes128;
  if (squeezed == "DES56") return Privacy::kDes;
  return ProtocolNamed<Privacy>(squeezed, kPrivacies);
}

SecurityLevel LevelOf(Authentication authentication, Privacy privacy) {
  if (authentication == Authentication::kNone) return SecurityLevel::kNoAuthNoPriv;
  return privacy == Privacy::kNone ? SecurityLevel::kAuthNoPriv : SecurityLevel::kAuthPriv;
}

std::optional<Privacy> OtherKeyForm(Authentication authentication, Privacy privacy) {
  constexpr int kAes192Length = 24;
  constexpr int kAes256Length = 32;
  const int length = KeyLength(authentication);
  switch (privacy) {
    case Privacy::kAes192:
      return length < kAes192Length ? std::optional(Privacy::kAes192C) : std::nullopt;
    case Privacy::kAes192C:
      return length < kAes192Length ? std::optional(Privacy::kAes192) : std::nullopt;
    case Privacy::kAes256:
      return length < kAes256Length ? std::optional(Privacy::kAes256C) : std::nullopt;
    case Privacy::kAes256C:
      return length < kAes256Length ? std::optional(Privacy::kAes256) : std::nullopt;
    default:
      return std::nullopt;
  }
}

std::string EngineText(std::string_view engine) {
  if (engine.empty()) return "any";
  std::string text = "0x";
  for (const char octet : engine) text += fmt::format("{:02x}", static_cast<unsigned char>(octet));
  return text;
}

std::optional<std::string> ReadEngine(std::string_view text) {
  std::string digits = UpperCase(TrimBlanks(text));
  if (digits.empty() || digits == "ANY") return "";
  if (digits.starts_with("0X")) digits.erase(0, 2);
  std::erase_if(digits, [](char c) { return c == ':' || c == '-' || c == '.' || c == ' '; });
  const auto engine = FromHex(digits);
  const bool fits = engine && engine->size() >= kShortestEngine && engine->size() <= kLongestEngine;
  return fits ? engine : std::nullopt;
}

}  // namespace sentrel
