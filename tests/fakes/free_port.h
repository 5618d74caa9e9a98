#pragma once

#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>

#include "fakes/loopback.h"

namespace sentrel {

/// A UDP port that is free now, and that the system is not soon to give to anyone else.
inline std::uint16_t FreePort() {
  const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = Loopback(0);
  socklen_t length = sizeof address;
  bind(descriptor, reinterpret_cast<const sockaddr*>(&address), length);
  getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &length);
  close(descriptor);
  return ntohs(address.sin_port);
}

}  // namespace sentrel
