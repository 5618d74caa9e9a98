#pragma once

#include <span>
#include <string>

#include "snmp/net_snmp.h"

namespace sentrel {

/// Dotted decimal, without a leading dot.
std::string OidText(std::span<const oid> id);

/// The tag byte of the value as it stands on the wire: 68 (Opaque) for a wrapped float too.
int TypeCode(const netsnmp_variable_list& binding);

/// Numbers in decimal, OBJECT IDENTIFIER and IpAddress dotted, an Opaque float or double as a
/// number, nothing for NULL, and octets as OctetText gives them.
std::string ValueText(const netsnmp_variable_list& binding);

}  // namespace sentrel
