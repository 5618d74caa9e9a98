#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/version3_user_store.h"

namespace sentrel {

/// "authPriv" and its like (RFC 3411, section 3.4.3).
std::string NameOf(SecurityLevel level);
/// "SHA-256"; "none" for none.
std::string NameOf(Authentication protocol);
/// "AES-256", and "AES-256-C" for the other way of making the key; "none" for none.
std::string NameOf(Privacy protocol);

/// The protocol of a name in any spelling that the field has: "SHA", "sha1", "SHA-256", "sha256".
/// Nothing for any other text, "none" included.
std::optional<Authentication> AuthenticationNamed(std::string_view name);
/// "DES", "des56", "AES", "aes128", "AES-256", "aes256c" and so on.
std::optional<Privacy> PrivacyNamed(std::string_view name);

/// How well keys of these protocols can protect a message.
SecurityLevel LevelOf(Authentication authentication, Privacy privacy);

/// Of the two ways of making a longer key of AES, the other one; nothing where there is only one,
/// or where the digest of the authentication protocol is long enough for both to make the same key.
std::optional<Privacy> OtherKeyForm(Authentication authentication, Privacy privacy);

/// "0x80000009..." for an engine ID's bytes, "any" for none.
std::string EngineText(std::string_view engine);
/// The bytes of an engine ID (RFC 3411, section 5): 5 to 32 of them in hexadecimal digits, with or
/// without "0x" in front, and ":", "-", "." or blanks between them; empty for "any" and "". Nothing
/// for any other text.
std::optional<std::string> ReadEngine(std::string_view text);

}  // namespace sentrel
