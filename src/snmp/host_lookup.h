#pragma once

#include <chrono>
#include <string>

#include "snmp/peer_address.h"

namespace sentrel {

/// An address of a host, its port left open.
struct HostAddress {
  Peer::Address address;
  socklen_t length;
};

/// Which addresses of a host are wanted.
enum class HostFamily { kIPv4 = AF_INET, kAny = AF_UNSPEC };

/// The system's first address of a host, given by its name or as an address. Waits no longer than
/// the limit. Throws Failure: unknown host, no answer in time.
HostAddress LookUpHost(const std::string& host, HostFamily family, std::chrono::milliseconds limit);

}  // namespace sentrel
