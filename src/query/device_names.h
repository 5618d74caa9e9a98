#pragma once

#include <string>
#include <string_view>

namespace sentrel::query {

/// The names that a user has given to addresses.
class DeviceNames {
 public:
  virtual ~DeviceNames() = default;
  /// Empty where the address has none.
  virtual std::string NameOf(std::string_view address) const = 0;
  /// Whether any address has this name, in any case of letters.
  virtual bool HasName(std::string_view name) const = 0;
};

}  // namespace sentrel::query
