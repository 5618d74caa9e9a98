#include "settings/device_filters.h"

#include <algorithm>

#include "settings/ip_functions.h"

namespace sentrel {

std::shared_ptr<const DeviceFilter> DeviceFilters::AddFilter(const std::string& Filter) {
  auto filter = std::make_shared<DeviceFilter>();
  filter->SetFilter(Filter);
  if (!filter->ValidFilter()) return nullptr;
  return filters_.Add(filter->Filter(), filter);
}

bool DeviceFilters::ValidFilter(const std::string& Filter) const {
  DeviceFilter filter;
  filter.SetFilter(Filter);
  return filter.ValidFilter();
}

bool DeviceFilters::AddressInFilters(const std::string& Address) const {
  if (!IsIPAddress(Address)) return false;
  const double address = IPAddressToDouble(Address);
  return std::any_of(filters_.begin(), filters_.end(), [address](const auto& entry) {
    return entry.second->AddressInFilter(address);
  });
}

std::shared_ptr<const DeviceFilter> DeviceFilters::Item(const std::string& Key) const {
  const auto* item = filters_.Find(Key);
  return item ? *item : nullptr;
}

void DeviceFilters::Refresh() {
  Clear();
  for (const std::string& text : stored_.Load()) AddFilter(text);
  stored_.SetLoaded(Keys());
}

}  // namespace sentrel
