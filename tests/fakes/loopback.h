#pragma once

#include <netinet/in.h>

#include <cstdint>

namespace sentrel {

/// A UDP port of this machine; 0 leaves the choice to the system.
inline sockaddr_in Loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

}  // namespace sentrel
