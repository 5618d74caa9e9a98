#pragma once

#include <chrono>
#include <cstdint>
#include <span>

#include "snmp/peer_address.h"

namespace sentrel {

/// One datagram as it arrived. The bytes belong to the one who reads the socket.
struct Datagram {
  std::span<const std::uint8_t> bytes;
  Peer peer;
  /// By the clock of the system, which takes the time when the datagram comes in.
  std::chrono::sys_time<std::chrono::nanoseconds> receivedAt{};
};

}  // namespace sentrel
