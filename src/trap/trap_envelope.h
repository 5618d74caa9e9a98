#pragma once

#include <chrono>
#include <cstdint>

#include "trap/security_level.h"

namespace sentrel {

/// The versions of SNMP, by the numbers that messages have for them (RFC 1157, RFC 1901, RFC 3412).
enum class SnmpVersion : std::uint8_t { k1 = 0, k2c = 1, k3 = 3 };

/// How a notification came, apart from what it says.
struct TrapEnvelope {
  SnmpVersion version = SnmpVersion::k2c;
  /// Below version 3 always kNoAuthNoPriv.
  SecurityLevel level = SecurityLevel::kNoAuthNoPriv;
  /// When the system took the datagram in. The epoch where nobody has told.
  std::chrono::sys_time<std::chrono::nanoseconds> receivedAt = {};
};

}  // namespace sentrel
