#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "settings/device_filter.h"
#include "settings/keyed_list.h"
#include "settings/stored_list.h"

namespace sentrel {

/// The device filter list: valid filters under their normal forms, in order of insertion. Used on
/// the event loop only.
class DeviceFilters {
 public:
  /// Begins empty; Refresh fills it.
  explicit DeviceFilters(RegistrySupport registry) : stored_(registry, "Device Filters") {}

  /// The filter that the list now holds for the text, an earlier one of the same normal form
  /// included; null if the text is not understood.
  std::shared_ptr<const DeviceFilter> AddFilter(const std::string& Filter);
  /// Whether the text would make a filter. Leaves the list alone.
  bool ValidFilter(const std::string& Filter) const;
  /// Whether any filter holds the address. False for a text that is no dotted quad.
  bool AddressInFilters(const std::string& Address) const;
  void Clear() { filters_.Clear(); }
  /// Whether this exact text is a key.
  bool Exists(const std::string& Filter) const { return filters_.Find(Filter) != nullptr; }
  std::vector<std::string> Keys() const { return filters_.Keys(); }
  /// Null if there is none.
  std::shared_ptr<const DeviceFilter> Item(const std::string& Key) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(filters_.Count()); }
  void Remove(const std::string& Key) { filters_.Remove(Key); }
  /// Loads from the store. What is not understood is passed over.
  void Refresh();
  /// Writes the first 200 to the store, in place of what is there; a list that has not changed
  /// since it was loaded or written leaves alone what others have written meanwhile.
  void Sync() { stored_.Save(Keys()); }
  /// Whether the stored list could not be read. This one is empty then, and Sync forgotten.
  bool IsUnreachable() const { return stored_.IsUnreachable(); }

 private:
  StoredList stored_;
  KeyedList<std::shared_ptr<const DeviceFilter>> filters_;
};

}  // namespace sentrel
