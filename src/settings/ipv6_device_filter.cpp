#include "settings/ipv6_device_filter.h"

#include <charconv>

#include "common/text.h"

namespace sentrel {
namespace {

constexpr int kBits = 128;
/// A shorter prefix holds more than link-local addresses.
constexpr int kLinkLocalBits = 10;

/// An address that a sender can have.
std::optional<Ipv6Address> ReadBound(std::string_view text) {
  auto address = ReadIpv6Address(text);
  if (!address || IsIpv4Mapped(*address)) return std::nullopt;
  if (!address->zone.empty() && !IsLinkLocal(*address)) return std::nullopt;
  return address;
}

std::optional<int> ReadLength(std::string_view text) {
  int length = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), length);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return length >= 0 && length <= kBits ? std::optional(length) : std::nullopt;
}

std::string TextOf(const Ipv6Address& address) {
  std::string text = Ipv6Text(address.octets);
  if (!address.zone.empty()) text.append("%").append(address.zone);
  return text;
}

/// The bits of the octet that lie behind a prefix of the length.
std::uint8_t HostBits(std::size_t octet, int length) {
  const int before = length - static_cast<int>(octet) * 8;
  if (before >= 8) return 0;
  return before <= 0 ? 0xFF : static_cast<std::uint8_t>(0xFF >> before);
}

}  // namespace

std::optional<Ipv6DeviceFilter> Ipv6DeviceFilter::Of(std::string_view text) {
  const std::string plain = ReplaceAll(ReplaceAll(text, "\\", "/"), " ", "");
  const std::string_view whole = plain;
  // The name of an interface may hold a "-" too.
  for (auto dash = whole.find('-'); dash != std::string::npos; dash = whole.find('-', dash + 1)) {
    if (auto filter = Range(whole.substr(0, dash), whole.substr(dash + 1))) return filter;
  }
  const auto slash = whole.find('/');
  if (slash == std::string::npos) return Prefix(whole, "128");
  return Prefix(whole.substr(0, slash), whole.substr(slash + 1));
}

std::optional<Ipv6DeviceFilter> Ipv6DeviceFilter::Range(std::string_view first,
                                                        std::string_view last) {
  const auto from = ReadBound(first);
  const auto to = ReadBound(last);
  if (!from || !to || from->zone != to->zone || to->octets < from->octets) return std::nullopt;
  Ipv6DeviceFilter filter;
  filter.first_ = *from;
  filter.last_ = *to;
  filter.text_ = TextOf(*from).append("-").append(TextOf(*to));
  return filter;
}

std::optional<Ipv6DeviceFilter> Ipv6DeviceFilter::Prefix(std::string_view address,
                                                         std::string_view length) {
  const auto bound = ReadBound(address);
  const auto bits = ReadLength(length);
  if (!bound || !bits) return std::nullopt;
  if (!bound->zone.empty() && *bits < kLinkLocalBits) return std::nullopt;
  Ipv6DeviceFilter filter;
  filter.first_ = filter.last_ = *bound;
  for (std::size_t i = 0; i < bound->octets.size(); ++i) {
    filter.first_.octets[i] &= static_cast<std::uint8_t>(~HostBits(i, *bits));
    filter.last_.octets[i] |= HostBits(i, *bits);
  }
  filter.text_ = TextOf(filter.first_);
  if (*bits < kBits) filter.text_.append("/").append(std::to_string(*bits));
  return filter;
}

bool Ipv6DeviceFilter::Holds(const Ipv6Address& address) const {
  const bool isZone = first_.zone.empty() || first_.zone == address.zone;
  return isZone && first_.octets <= address.octets && address.octets <= last_.octets;
}

}  // namespace sentrel
