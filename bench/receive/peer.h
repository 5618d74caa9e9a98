#pragma once

#include <cstdint>
#include <optional>

namespace sentrel::bench {

/// Seconds of processor time that snmptrapd uses for a trap, logging to nowhere; nothing where it
/// is not installed.
std::optional<double> PeerSecondsPerTrap(std::uint16_t port, std::uint32_t count,
                                         std::uint32_t rate);

}  // namespace sentrel::bench
