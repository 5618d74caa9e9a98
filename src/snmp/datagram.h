#pragma once

#include <cstdint>
#include <span>

#include "snmp/peer_address.h"

namespace sentrel {

/// One datagram as it arrived. The bytes belong to the one who reads the socket.
struct Datagram {
  std::span<const std::uint8_t> bytes;
  Peer peer;
};

}  // namespace sentrel
