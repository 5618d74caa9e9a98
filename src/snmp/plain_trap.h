#pragma once

#include "platform/arrived_trap.h"
#include "snmp/datagram.h"

namespace sentrel {

/// Takes an everyday version 2c trap, with its bindings checked and still encoded, using the memory
/// of `trap` again. Storms consist of these, and the SNMP library takes many times as long to reach
/// the same result.
///
/// False for every other message, and for one of which anything at all is out of the ordinary
/// (other types of values, numbers of unusual length, a length that does not fit): what is to be
/// made of those is the library's decision. `trap` is left alone then.
bool TakePlainTrap(const Datagram& datagram, ArrivedTrap& trap);

}  // namespace sentrel
