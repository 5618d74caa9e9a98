#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "settings/registry_support.h"

namespace sentrel {

/// A list of texts in the store: the values "1" to "200" of a section of this program, in order.
/// Texts beyond the two hundredth are not kept. Other processes may change the section meanwhile.
class StoredList {
 public:
  StoredList(RegistrySupport registry, std::string section)
      : registry_(registry), section_(std::move(section)) {}

  /// The texts that are there and not empty; holes in the numbering are passed over.
  std::vector<std::string> Load();
  /// What the owner has made of the loaded texts: as long as it stays that, nothing has changed.
  void SetLoaded(std::vector<std::string> texts) { known_ = std::move(texts); }
  /// Leaves exactly these texts in the store, as one durable change. Texts that have not changed
  /// are not written, however untidy the section.
  void Save(std::vector<std::string> texts);
  bool IsUnreachable() const { return registry_.IsUnreachable(kApplicationDescription, section_); }

 private:
  void WriteSection(const std::vector<std::string>& texts) const;

  RegistrySupport registry_;
  std::string section_;
  /// What the owner last loaded or saved.
  std::optional<std::vector<std::string>> known_;
};

}  // namespace sentrel
