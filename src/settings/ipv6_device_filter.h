#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/ipv6_address.h"

namespace sentrel {

/// An IPv6 address, a range or a prefix: a pair of bounds that a source address lies between or
/// not, and perhaps the interface on which it must have come.
class Ipv6DeviceFilter {
 public:
  /// Understands "2001:db8::1", "fe80::1%eth0", "2001:db8::1 - 2001:db8::ff" from low to high,
  /// "2001:db8::/32" and every Text(). Nothing for any other text: one that means IPv4 addresses,
  /// and one whose zone could not be that of any sender, among them.
  static std::optional<Ipv6DeviceFilter> Of(std::string_view text);

  /// The normal form, in addresses as RFC 5952 has them, host bits cleared.
  const std::string& Text() const { return text_; }
  /// Both bounds belong to the filter. One without a zone holds the addresses of all zones.
  bool Holds(const Ipv6Address& address) const;

 private:
  static std::optional<Ipv6DeviceFilter> Range(std::string_view first, std::string_view last);
  static std::optional<Ipv6DeviceFilter> Prefix(std::string_view address, std::string_view length);

  Ipv6Address first_;
  Ipv6Address last_;
  std::string text_;
};

}  // namespace sentrel
