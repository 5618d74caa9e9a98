#include "query/address_value.h"

#include <charconv>

#include "common/dotted_quad.h"
#include "common/text.h"

namespace sentrel::query {
namespace {

std::optional<std::uint32_t> NumberOf(std::string_view address) {
  const auto parts = DottedQuad(address);
  if (!parts) return std::nullopt;
  std::uint32_t number = 0;
  for (const std::uint8_t part : *parts) number = number << 8 | part;
  return number;
}

std::optional<int> PrefixOf(std::string_view text) {
  int length = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), length);
  const bool isLength = error == std::errc() && end == text.data() + text.size();
  return isLength && length >= 0 && length <= 32 ? std::optional(length) : std::nullopt;
}

std::uint32_t HostBits(int prefix) {
  return prefix == 0 ? ~std::uint32_t{0} : (std::uint64_t{1} << (32 - prefix)) - 1;
}

/// "10.1", "10.1." and "10.1.*" as "10.1.0.0/16".
std::string Completed(std::string_view text) {
  if (text.ends_with('*')) text.remove_suffix(1);
  if (text.ends_with('.')) text.remove_suffix(1);
  const auto parts = Split(text, ".").size();
  if (text.empty() || parts >= 4) return "";
  std::string address(text);
  for (auto part = parts; part < 4; ++part) address += ".0";
  return address.append("/").append(std::to_string(8 * parts));
}

}  // namespace

std::optional<AddressValue::Ipv4Range> AddressValue::Ipv4Of(std::string_view text) {
  if (const auto address = NumberOf(text)) return Ipv4Range{*address, *address};
  const auto slash = text.find('/');
  const auto dash = text.find('-');
  if (slash != std::string_view::npos) {
    const auto address = NumberOf(text.substr(0, slash));
    const auto prefix = PrefixOf(text.substr(slash + 1));
    if (!address || !prefix) return std::nullopt;
    return Ipv4Range{*address & ~HostBits(*prefix), *address | HostBits(*prefix)};
  }
  if (dash != std::string_view::npos) {
    const auto first = NumberOf(text.substr(0, dash));
    const auto last = NumberOf(text.substr(dash + 1));
    if (!first || !last || *first > *last) return std::nullopt;
    return Ipv4Range{*first, *last};
  }
  const std::string completed = Completed(text);
  return completed.empty() ? std::nullopt : Ipv4Of(completed);
}

std::optional<AddressValue> AddressValue::Of(std::string_view text) {
  AddressValue value;
  value.ipv4_ = Ipv4Of(text);
  if (!value.ipv4_) {
    const auto dash = text.find('-');
    const std::string spaced =
        dash == std::string_view::npos
            ? std::string(text)
            : std::string(text.substr(0, dash)).append(" - ").append(text.substr(dash + 1));
    value.ipv6_ = Ipv6DeviceFilter::Of(spaced);
  }
  return value.ipv4_ || value.ipv6_ ? std::optional(value) : std::nullopt;
}

bool AddressValue::Holds(std::string_view address) const {
  if (ipv4_) {
    const auto number = NumberOf(address);
    return number && ipv4_->first <= *number && *number <= ipv4_->last;
  }
  const auto ipv6 = ReadIpv6Address(address);
  return ipv6 && ipv6_->Holds(*ipv6);
}

}  // namespace sentrel::query
