#pragma once

#include "snmp/datagram.h"
#include "snmp/net_snmp.h"
#include "trap/trap.h"

namespace sentrel {

/// The notification as the program takes it, bindings in the order of the PDU. A version 1 trap
/// gets the bindings that make it a version 2 notification (RFC 3584, section 3.1): sysUpTime.0
/// and snmpTrapOID.0 in front; behind, where the PDU has none of its own, snmpTrapAddress.0 (if
/// the agent's address is known and is not the source) and snmpTrapEnterprise.0.
Trap ToTrap(const netsnmp_pdu& pdu, const Peer& peer);

}  // namespace sentrel
