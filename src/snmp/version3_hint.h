#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/version3_user_store.h"
#include "snmp/replay_check.h"

namespace sentrel {

// Why a version 3 message was refused, as far as more than its reason is known: sentences for
// people, which name no key. Empty where nothing more is known.

/// By the length of a wrong digest (RFC 3414, RFC 7860).
std::string HintOfDigest(std::size_t octets, Authentication ofUser);

/// By the protocol as which the user's passphrase does decrypt the message (OtherPrivacyOf).
std::string HintOfPrivacy(std::optional<Privacy> readable, Privacy ofUser);

/// By the users that are known, of which none has this name and this engine.
std::string HintOfUser(std::string_view name, const std::vector<Version3User>& known);

/// By the newest moment that the engine has told; nothing where none is known.
std::string HintOfMoment(EngineMoment ofMessage, std::optional<EngineMoment> newest);

}  // namespace sentrel
