#include "settings/ipv6_address.h"

#include <arpa/inet.h>

#include <algorithm>

#include "common/text.h"

namespace sentrel {
namespace {

/// Longer ones the system does not allow.
constexpr std::size_t kLongestInterfaceName = 15;

bool IsZone(std::string_view text) {
  return !text.empty() && text.size() <= kLongestInterfaceName && IsPrintableAscii(text) &&
         text.find_first_of(" %/:") == std::string_view::npos;
}

}  // namespace

std::optional<Ipv6Address> ReadIpv6Address(std::string_view text) {
  Ipv6Address address;
  const auto percent = text.find('%');
  if (percent != std::string_view::npos) {
    address.zone = text.substr(percent + 1);
    if (!IsZone(address.zone)) return std::nullopt;
  }
  const std::string digits(text.substr(0, percent));
  if (digits.find('\0') != std::string::npos) return std::nullopt;
  if (inet_pton(AF_INET6, digits.c_str(), address.octets.data()) != 1) return std::nullopt;
  return address;
}

std::string Ipv6Text(const std::array<std::uint8_t, 16>& octets) {
  std::array<char, INET6_ADDRSTRLEN> buffer{};
  return inet_ntop(AF_INET6, octets.data(), buffer.data(), buffer.size());
}

bool IsIpv4Mapped(const Ipv6Address& address) {
  const auto& octets = address.octets;
  return std::all_of(octets.begin(), octets.begin() + 10, [](auto octet) { return octet == 0; }) &&
         octets[10] == 0xFF && octets[11] == 0xFF;
}

bool IsLinkLocal(const Ipv6Address& address) {
  return address.octets[0] == 0xFE && (address.octets[1] & 0xC0) == 0x80;
}

}  // namespace sentrel
