#pragma once

#include <cstddef>
#include <string>

#include "platform/version3_user_store.h"

namespace sentrel {

/// Why the digest of a message is wrong, as far as its length tells (RFC 3414, RFC 7860): a
/// sentence for people. Empty for a user without authentication.
std::string HintOfDigest(std::size_t octets, Authentication ofUser);

}  // namespace sentrel
