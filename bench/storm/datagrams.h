#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sentrel::bench {

/// Version 2c traps, coded as they go over the wire, to be sent in turn.
using Datagrams = std::vector<std::string>;

/// One link-down notification as a switch sends it, with six bindings: sysUpTime, snmpTrapOID,
/// ifIndex, ifAdminStatus, ifOperStatus, ifDescr.
Datagrams LinkDown();

/// One notification with so many bindings, at least 1, of column ifDescr.
Datagrams WithBindings(std::uint32_t bindings);

/// Notifications of ten bindings each in which so many different instances of a column occur.
Datagrams WithDistinctOids(std::uint32_t distinct);

}  // namespace sentrel::bench
