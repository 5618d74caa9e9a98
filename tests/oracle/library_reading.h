#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "snmp/datagram.h"
#include "snmp/net_snmp.h"
#include "trap/trap.h"

namespace sentrel {

using LibraryPdu = std::unique_ptr<netsnmp_pdu, decltype(&snmp_free_pdu)>;

/// What the SNMP library makes of the bytes of a PDU; null where it refuses them.
LibraryPdu LibraryPduOf(std::vector<std::uint8_t> bytes);

/// What the SNMP library makes of a notification of version 1 or 2c; nothing where it refuses it. A
/// version 1 trap has the bindings that make it a version 2 notification (RFC 3584, section 3.1).
std::optional<Trap> LibraryReading(const Datagram& datagram);

/// Whether a value is shown by its octets because it cannot be read.
inline bool IsOdd(std::string_view text) {
  return text.starts_with("tag 0x");
}

/// Whether all is the same but for what is shown as odd. The library makes some number of many odd
/// values, and leaves out a version 1 agent's address of no octets.
bool Agree(const Trap& ours, const Trap& library);

}  // namespace sentrel
