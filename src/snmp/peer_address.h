#pragma once

#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace sentrel {

/// Where a datagram came from, and the address of this machine that it was sent to, so that an
/// answer leaves from there. Copied as bytes by the SNMP library.
struct Peer {
  union Address {
    sockaddr any;
    sockaddr_in v4;
    sockaddr_in6 v6;
  };
  Address remote;
  socklen_t remoteLength;
  /// A control message as sendmsg takes it (IP_PKTINFO or IPV6_PKTINFO); its length may be 0.
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(in6_pktinfo))> local;
  std::size_t localLength;
};

/// In host order.
inline std::uint16_t PortOf(const Peer::Address& address) {
  return ntohs(address.v4.sin_port);  // at the same place in both forms
}

/// Dotted quad, also for an IPv4 address that is mapped into IPv6, else the text form of the IPv6
/// address (RFC 5952) with its zone where it is a link-local one.
void AddressText(const Peer& peer, std::string& text);

}  // namespace sentrel
