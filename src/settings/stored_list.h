#pragma once

#include <string>
#include <vector>

#include "settings/registry_support.h"

namespace sentrel {

/// A list of texts in the store: the values "1" to "200" of a section of this program, in order.
/// Texts beyond the two hundredth are not kept.
class StoredList {
 public:
  StoredList(RegistrySupport registry, std::string section)
      : registry_(registry), section_(std::move(section)) {}

  /// The texts that are there and not empty; holes in the numbering are passed over.
  std::vector<std::string> Load() const;
  /// Leaves exactly these texts in the store, as one durable change.
  void Save(const std::vector<std::string>& texts) const;

 private:
  RegistrySupport registry_;
  std::string section_;
};

}  // namespace sentrel
