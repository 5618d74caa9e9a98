#pragma once

#include <cstdint>

namespace sentrel::bench {

/// Sends `count` version 2c traps of six bindings to a UDP port of this machine, `rate` a second
/// (0 for as fast as the system takes them), from a process of its own. Returns when they are
/// sent, with the seconds that it took.
double SendStorm(std::uint16_t port, std::uint32_t count, std::uint32_t rate);

}  // namespace sentrel::bench
