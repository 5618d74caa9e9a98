#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/version3_user_store.h"
#include "snmp/net_snmp.h"

namespace sentrel {

/// A user and the master keys that the passphrases make (RFC 3414, section A.2). Whoever has a
/// master key has the key of every engine with that passphrase.
struct KeyedUser {
  /// Without lastHeard and isFromFile.
  Version3User user;
  /// Bytes; empty where the user has no such protocol.
  std::string authKey;
  std::string privKey;
};

/// A user of the SNMP library that is not in the library's list.
struct FreeUsmUser {
  void operator()(usmUser* user) const { usm_free_user(user); }
};
using OwnedUsmUser = std::unique_ptr<usmUser, FreeUsmUser>;

// The functions below use nothing of the SNMP library that changes: for any thread.

/// As createUser lines have them: "SHA-256", "AES-192-C". Empty for kNone.
std::string_view WordOf(Authentication protocol);
std::string_view WordOf(Privacy protocol);
std::optional<Authentication> AuthenticationOfWord(std::string_view name);
std::optional<Privacy> PrivacyOfWord(std::string_view name);

/// Octets of a master key of the protocol; 0 for kNone.
std::size_t KeyLength(Authentication protocol);
/// Octets of msgAuthenticationParameters (RFC 3414, RFC 7860); 0 for kNone.
std::size_t DigestLength(Authentication protocol);
/// Takes some milliseconds, as it is meant to. Throws Failure for a passphrase of fewer than eight
/// octets and for a protocol that the SNMP library does not have.
std::string MasterKey(Authentication protocol, std::string_view passphrase);

/// The user with the keys of one engine (RFC 3414, section A.2; the longer keys of AES as Privacy
/// tells). Null where the SNMP library does not have a protocol.
OwnedUsmUser Localize(const KeyedUser& user, std::string_view engine);
/// A user of the SNMP library's list, without keys.
Version3User DescriptionOf(const usmUser& user);

}  // namespace sentrel
