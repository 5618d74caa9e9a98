#pragma once

#include <string>

#include "console/oid_lookup.h"
#include "trap/trap.h"

namespace sentrel {

/// The binding that names the kind of device (snmpTrapEnterprise.0, RFC 3418).
inline constexpr const char* kEnterpriseOid = "1.3.6.1.6.3.1.1.4.3.0";

/// What the table shows of one trap.
struct TrapTexts {
  /// The enterprise, the last one where there are several; empty where there is none.
  std::string DeviceType;
  /// One line per binding but the enterprise, separated by CR LF.
  std::string SummaryText;
};

/// Bindings are shown raw or decoded; octets that are most likely text (ReadableOctets) as that
/// text. A missing name is no failure: an enterprise that cannot be decoded is shown raw.
TrapTexts DescribeTrap(const Trap& trap, bool raw, OidLookup& lookup);

/// What the log tells of one trap, in the same manner: the source address, then one line per
/// binding, the enterprise included, that begins with 18 blanks; CR LF between lines. Every further
/// line of a binding begins with 22 blanks and is left out where it is blank: whatever a trap
/// holds, none of its lines begins like an entry or like a binding.
std::string DetailText(const Trap& trap, bool raw, OidLookup& lookup);

}  // namespace sentrel
