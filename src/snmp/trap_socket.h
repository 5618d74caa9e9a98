#pragma once

#include <cstdint>

namespace sentrel {

/// The port that notifications arrive on (RFC 3417, section 3.1).
inline constexpr std::uint16_t kTrapPort = 162;

/// A UDP socket bound to the port on every address of the machine: one socket for IPv6 and IPv4,
/// or for IPv4 alone where the system has no IPv6. Port 0 lets the system choose. No other socket
/// can share the port. Returns the descriptor, closed on exec and owned by the caller, or the
/// negative errno.
int BindTrapSocket(std::uint16_t port);

}  // namespace sentrel
