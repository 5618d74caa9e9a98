#include "snmp/peer_address.h"

#include <arpa/inet.h>
#include <net/if.h>

#include <cstdint>
#include <span>

#include "common/dotted_quad.h"

namespace sentrel {
namespace {

std::span<const std::uint8_t, 4> Octets(const void* address) {
  return std::span<const std::uint8_t, 4>(static_cast<const std::uint8_t*>(address), 4);
}

void AppendZone(std::uint32_t index, std::string& text) {
  std::array<char, IF_NAMESIZE> name{};
  if (index == 0) return;
  text += '%';
  text += if_indextoname(index, name.data()) != nullptr ? name.data() : std::to_string(index);
}

}  // namespace

void AddressText(const Peer& peer, std::string& text) {
  std::array<char, INET6_ADDRSTRLEN> buffer{};
  const in6_addr& v6 = peer.remote.v6.sin6_addr;
  if (peer.remote.any.sa_family == AF_INET) {
    text = DottedQuadText(Octets(&peer.remote.v4.sin_addr));
  } else if (IN6_IS_ADDR_V4MAPPED(&v6)) {
    text = DottedQuadText(Octets(&v6.s6_addr[12]));
  } else {
    text = inet_ntop(AF_INET6, &v6, buffer.data(), buffer.size());
    AppendZone(peer.remote.v6.sin6_scope_id, text);
  }
}

}  // namespace sentrel
