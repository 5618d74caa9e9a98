#pragma once

#include <string>
#include <vector>

#include "settings/ipv6_device_filter.h"
#include "settings/keyed_list.h"
#include "settings/stored_list.h"

namespace sentrel {

/// The device filters for senders without a dotted quad, under their normal forms, in order of
/// insertion. Used on the event loop only.
class Ipv6DeviceFilters {
 public:
  /// Begins empty; Refresh fills it.
  explicit Ipv6DeviceFilters(RegistrySupport registry) : stored_(registry, "IPv6 Device Filters") {}

  /// Returns false for a text that is not understood. One that the list holds already is no fault.
  bool AddFilter(const std::string& text);
  /// Whether any filter holds the address. An empty list holds none, one that could not be read
  /// and is still empty holds all.
  bool AddressInFilters(const std::string& address) const;
  void Clear() { filters_.Clear(); }
  std::vector<std::string> Keys() const { return filters_.Keys(); }
  std::size_t Count() const { return filters_.Count(); }
  /// Loads from the store. What is not understood is passed over.
  void Refresh();
  /// Writes the first 200, as DeviceFilters does.
  void Sync() { stored_.Save(Keys()); }
  /// Whether the stored list could not be read at the last Refresh, and nothing has been added.
  bool IsUnknown() const { return wasUnreachable_ && filters_.Count() == 0; }

 private:
  StoredList stored_;
  KeyedList<Ipv6DeviceFilter> filters_;
  bool wasUnreachable_ = false;
};

}  // namespace sentrel
