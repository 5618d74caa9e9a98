#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "snmp/ber.h"

namespace sentrel {

using OidNumbers = std::vector<std::uint32_t>;

/// The numbers of an encoded object identifier; none where the content is not one (RFC 2578,
/// section 3.5).
OidNumbers NumbersOf(ber::Bytes content);
/// The numbers of dotted decimal, which must be an OID.
OidNumbers NumbersOf(std::string_view dotted);

/// "1.3.6"; empty for no numbers.
std::string Dotted(std::span<const std::uint32_t> numbers);

}  // namespace sentrel
