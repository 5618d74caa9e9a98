// Any text as an IPv6 device filter: it is refused, or its normal form is its own normal form and
// the address that it begins with belongs to it.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "settings/ipv6_device_filter.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

/// The address at the start of a normal form. The zone of an address ends before what an
/// interface's name cannot hold; a "-" may be part of it, so that a range may yield no address
/// here.
std::optional<sentrel::Ipv6Address> FirstAddress(const std::string& text) {
  const auto dash = text.find('-');
  return sentrel::ReadIpv6Address(text.substr(0, std::min(dash, text.find('/'))));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const auto filter = sentrel::Ipv6DeviceFilter::Of(text);
  if (!filter) return 0;
  const auto again = sentrel::Ipv6DeviceFilter::Of(filter->Text());
  Require(again && again->Text() == filter->Text());
  const auto first = FirstAddress(filter->Text());
  if (first && filter->Text().find('%') == std::string::npos) {
    Require(filter->Holds(*first) && again->Holds(*first));
  }
  return 0;
}
