#include "snmp/version3_hint.h"

#include <fmt/format.h>

#include <algorithm>

#include "common/text.h"
#include "snmp/ber.h"
#include "snmp/octet_text.h"
#include "snmp/version3_keys.h"

namespace sentrel {
namespace {

/// Empty where no protocol has digests of this length.
std::string ProtocolsWithDigest(std::size_t octets) {
  std::string names;
  for (int i = 1; i <= static_cast<int>(Authentication::kSha512); ++i) {
    const auto protocol = static_cast<Authentication>(i);
    if (DigestLength(protocol) != octets) continue;
    if (!names.empty()) names += " or ";
    names += WordOf(protocol);
  }
  return names;
}

bool IsLengthened(Privacy protocol) {
  return protocol >= Privacy::kAes192;
}

/// As in settings and configuration files: 0x80001f88...
std::string HexOf(std::string_view engine) {
  std::string hex = "0x";
  for (const char byte : engine) fmt::format_to(std::back_inserter(hex), "{:02x}", byte & 0xFF);
  return hex;
}

}  // namespace

std::string HintOfDigest(std::size_t octets, Authentication ofUser) {
  if (ofUser == Authentication::kNone) return "";
  if (octets == DigestLength(ofUser)) {
    return fmt::format(
        "The digest is as long as {} makes it, so the passphrase is probably another one.",
        ProtocolsWithDigest(octets));
  }
  const std::string makers = ProtocolsWithDigest(octets);
  const std::string found =
      makers.empty() ? "which no protocol makes" : "as " + makers + " makes it";
  return fmt::format("The digest has {} octets, {}; the user's key is for {}.", octets, found,
                     WordOf(ofUser));
}

std::string HintOfPrivacy(std::optional<Privacy> readable, Privacy ofUser) {
  if (!readable) return "";
  const bool isKeyForm = IsLengthened(*readable) && IsLengthened(ofUser);
  return fmt::format(
      "The passphrase is right: the message can be read as {}, and the user is set "
      "to {}{}.",
      WordOf(*readable), WordOf(ofUser), isKeyForm ? ", which makes its key otherwise" : "");
}

std::string HintOfUser(std::string_view name, const std::vector<Version3User>& known) {
  const auto sameName = std::ranges::find_if(
      known, [&](const Version3User& user) { return user.name == name && !user.engine.empty(); });
  if (sameName != known.end()) {
    return fmt::format("This user is known for the engine {} alone.", HexOf(sameName->engine));
  }
  const auto alike = std::ranges::find_if(known, [&](const Version3User& user) {
    return UpperCase(user.name) == UpperCase(std::string(name));
  });
  if (alike == known.end()) return "";
  return "A user \"" + OctetText(ber::BytesOf(alike->name)) + "\" is known: case counts.";
}

std::string HintOfMoment(EngineMoment ofMessage, std::optional<EngineMoment> newest) {
  if (ofMessage.boots == ReplayCheck::kMostBoots) {
    return "The engine has started as often as can be counted, and must be set up anew.";
  }
  if (!newest) return "";
  const auto text = [](EngineMoment moment) {
    return fmt::format("start {}, second {}", moment.boots, moment.time);
  };
  return fmt::format("It says {}; this engine has been heard at {}.", text(ofMessage),
                     text(*newest));
}

}  // namespace sentrel
