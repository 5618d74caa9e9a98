#pragma once

#include <string>

#include "console/oid_lookup.h"
#include "platform/trap.h"

namespace sentrel {

/// The binding that names the kind of device (snmpTrapEnterprise.0, RFC 3418).
inline constexpr const char* kEnterpriseOid = "1.3.6.1.6.3.1.1.4.3.0";

/// What people read of one trap. Lines are separated by CR LF.
struct TrapTexts {
  /// The enterprise, the last one where there are several; empty where there is none.
  std::string DeviceType;
  /// One line per binding but the enterprise.
  std::string SummaryText;
  /// For the log: the source address, then one indented line per binding, the enterprise included.
  std::string DetailText;
};

/// One walk over the bindings, which stand raw or decoded. Never throws for want of names: an
/// enterprise that cannot be decoded stands raw.
TrapTexts DescribeTrap(const Trap& trap, bool raw, OidLookup& lookup);

}  // namespace sentrel
