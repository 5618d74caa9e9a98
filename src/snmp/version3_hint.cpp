#include "snmp/version3_hint.h"

#include <fmt/format.h>

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

}  // namespace sentrel
