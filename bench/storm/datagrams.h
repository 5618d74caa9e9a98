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

/// One notification with this many bindings, at least 1, of column ifDescr.
Datagrams WithBindings(std::uint32_t bindings);

/// One notification with this many bindings without a value: up to 6,000 fit a datagram.
Datagrams WithEmptyBindings(std::uint32_t bindings);

/// One notification whose only binding holds this text, of up to 60,000 bytes.
Datagrams WithText(const std::string& text);

/// Notifications of ten bindings each in which this many different instances of a column occur.
Datagrams WithDistinctOids(std::uint32_t distinct);

}  // namespace sentrel::bench
