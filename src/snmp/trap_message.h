#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sentrel {

/// The bytes of a version 2c trap (RFC 1901, RFC 3416): exactly the given bindings, up to the end
/// of the shortest list, and a random request ID. Touches none of the SNMP library's shared
/// state, so that it may run beside the receiver. Throws Failure where a value does not fit its
/// type code or the whole does not fit a datagram.
std::vector<std::uint8_t> TrapMessage(const std::string& community,
                                      const std::vector<std::string>& OIDs,
                                      const std::vector<std::string>& Values,
                                      const std::vector<std::int16_t>& DataTypes);

}  // namespace sentrel
