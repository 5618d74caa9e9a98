#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "snmp/net_snmp.h"

namespace sentrel {

/// The numbers of an object identifier in dotted decimal, with or without a leading dot. Throws
/// Failure where the text is none that can be encoded (RFC 2578, section 3.5): 2 to 128 numbers
/// below 2^32, the first at most 2, the second below 40 behind 0 and 1.
std::vector<oid> ParseOid(std::string_view text);

/// Appends a binding: the reverse of TypeCode and ValueText, so that the value that arrives has the
/// text that was sent. Octets are taken as they are, unless the text is what octets that are no
/// text are shown as; an Opaque number becomes the smallest kind that is shown like it. Throws
/// Failure where the value does not fit the type code or the type code is none that a trap can
/// carry (RFC 3416); the list is then unchanged.
void AppendBinding(netsnmp_variable_list*& list, const std::string& id, int typeCode,
                   const std::string& value);

}  // namespace sentrel
