#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "settings/ipv6_device_filter.h"

namespace sentrel::query {

/// Addresses that "from:" stands for: one, a range "10.1.1.1-10.1.1.9", a prefix "10.1.0.0/16" or
/// the first parts of one, "10.1" or "10.1.*", and the same of IPv6 but for the parts.
class AddressValue {
 public:
  /// Nothing for any other text.
  static std::optional<AddressValue> Of(std::string_view text);
  /// A dotted quad, or the text form of an IPv6 address.
  bool Holds(std::string_view address) const;

 private:
  struct Ipv4Range {
    std::uint32_t first;
    std::uint32_t last;
  };
  static std::optional<Ipv4Range> Ipv4Of(std::string_view text);

  std::optional<Ipv4Range> ipv4_;
  std::optional<Ipv6DeviceFilter> ipv6_;
};

}  // namespace sentrel::query
