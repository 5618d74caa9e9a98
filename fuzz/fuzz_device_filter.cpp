// Any text as a device filter: it is refused whole, or its normal form and its description mean
// the same again and both bounds belong to it.

#include "settings/device_filter.h"

#include <cstdint>
#include <cstdlib>
#include <string>

#include "settings/ip_functions.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  sentrel::DeviceFilter filter;
  filter.SetFilter(text);
  if (!filter.ValidFilter()) {
    Require(filter.FilterType() == 0 && filter.Filter().empty() && filter.Description().empty());
    return 0;
  }
  Require(sentrel::IsIPAddress(filter.BeginningAddress()));
  Require(sentrel::IsIPAddress(filter.EndingAddress()));
  Require(filter.AddressInFilter(filter.BeginningAddress()));
  Require(filter.AddressInFilter(filter.EndingAddress()));
  for (const std::string& again : {filter.Filter(), filter.Description()}) {
    sentrel::DeviceFilter same;
    same.SetFilter(again);
    Require(same.Filter() == filter.Filter() && same.FilterType() == filter.FilterType());
    Require(same.EndingAddressdouble() == filter.EndingAddressdouble());
  }
  return 0;
}
