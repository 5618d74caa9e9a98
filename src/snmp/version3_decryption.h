#pragma once

#include <optional>

#include "snmp/ber.h"
#include "snmp/usm_parameters.h"
#include "snmp/version3_keys.h"

namespace sentrel {

/// The protocol, other than the user's own, as which the encrypted part of a message can be read
/// with the user's passphrase; nothing where there is none. `encrypted` is msgData, from its tag on
/// (RFC 3414, section 2.4). Takes some tens of microseconds. Uses nothing of the SNMP library that
/// changes: for any thread.
std::optional<Privacy> OtherPrivacyOf(const KeyedUser& user, const UsmParameters& parameters,
                                      ber::Bytes encrypted);

}  // namespace sentrel
