#pragma once

#include <optional>

#include "platform/trap.h"
#include "snmp/datagram.h"

namespace sentrel {

/// Reads an everyday version 2c trap straight into a Trap. Storms consist of these, and the SNMP
/// library takes several times as long to reach the same result.
///
/// Nothing for every other message, and for one of which anything at all is out of the ordinary
/// (other types of values, numbers of unusual length, a length that does not fit): what is to be
/// made of those is the library's decision.
std::optional<Trap> ReadPlainTrap(const Datagram& datagram);

}  // namespace sentrel
