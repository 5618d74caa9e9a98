#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sentrel {

struct Ipv6Address {
  /// In network order.
  std::array<std::uint8_t, 16> octets{};
  /// The interface of a link-local address, its name or number; "" where the text names none.
  std::string zone;
};

/// Any text form of RFC 4291, section 2.2, with an optional zone behind "%" (RFC 4007, section 11).
/// Nothing for any other text.
std::optional<Ipv6Address> ReadIpv6Address(std::string_view text);

/// The normal form of RFC 5952, without a zone.
std::string Ipv6Text(const std::array<std::uint8_t, 16>& octets);

/// Whether it is an IPv4 address in IPv6's clothes (::ffff:0:0/96).
bool IsIpv4Mapped(const Ipv6Address& address);

/// Whether it means something else on each interface (fe80::/10).
bool IsLinkLocal(const Ipv6Address& address);

}  // namespace sentrel
