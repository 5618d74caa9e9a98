#include "settings/ipv6_device_filters.h"

#include <algorithm>

namespace sentrel {

bool Ipv6DeviceFilters::AddFilter(const std::string& text) {
  const auto filter = Ipv6DeviceFilter::Of(text);
  if (filter) filters_.Add(filter->Text(), *filter);
  return filter.has_value();
}

bool Ipv6DeviceFilters::AddressInFilters(const std::string& address) const {
  if (IsUnknown()) return true;
  const auto source = ReadIpv6Address(address);
  return source && std::any_of(filters_.begin(), filters_.end(), [&source](const auto& entry) {
           return entry.second.Holds(*source);
         });
}

void Ipv6DeviceFilters::Refresh() {
  Clear();
  for (const std::string& text : stored_.Load()) AddFilter(text);
  stored_.SetLoaded(Keys());
  wasUnreachable_ = stored_.IsUnreachable();
}

}  // namespace sentrel
