#pragma once

#include <string>

#include "platform/version3_user_store.h"

namespace sentrel {

/// A user as a pasted line creates it.
struct PastedUser {
  Version3UserEntry entry;
  /// Why it cannot be taken, in a sentence that holds no word of the line; "" where it can.
  std::string problem;
};

/// What pasted lines have in common.
namespace pasted {

inline constexpr const char* kHashed =
    "Its secrets are encrypted, or keys made for one device. Sentrel needs the passphrases as they "
    "were typed.";
inline constexpr const char* kUnknownAuthentication =
    "Its authentication protocol is none of MD5, SHA-1, SHA-224, SHA-256, SHA-384 and SHA-512.";
inline constexpr const char* kUnknownPrivacy =
    "Its privacy protocol is none of DES, AES-128, AES-192 and AES-256.";
inline constexpr const char* kBadEngine =
    "Its engine ID is not 5 to 32 octets in hexadecimal digits.";
inline constexpr const char* kUnknownWords = "The line has words that Sentrel does not know.";

}  // namespace pasted
}  // namespace sentrel
