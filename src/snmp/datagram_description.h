#pragma once

#include <string>
#include <string_view>

#include "platform/reception_monitor.h"
#include "snmp/datagram.h"
#include "snmp/version3_guard.h"

namespace sentrel {

/// All that can be read of a datagram without a key, for people: who sent it, its version, level,
/// user and notification. `decrypted` is what the guard has let pass of it, or null; `hint` what is
/// known of the refusal besides, and where it is empty, what the octets themselves tell.
SeenDatagram DescribeDatagram(const Datagram& datagram, Outcome outcome, std::string_view hint,
                              const Version3Message* decrypted);

}  // namespace sentrel
