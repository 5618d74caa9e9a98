#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "settings/keyed_list.h"
#include "settings/stored_list.h"

namespace sentrel {

/// The community strings whose traps are accepted, in order of insertion; case counts. An empty
/// list accepts all. Used on the event loop only.
class CommunityStrings {
 public:
  /// Begins empty; Refresh fills it.
  explicit CommunityStrings(RegistrySupport registry) : stored_(registry, "Community Strings") {}

  /// Trims blanks from both ends. A duplicate is ignored.
  void Add(const std::string& CommunityString);
  /// At most 32767, however long the list.
  std::int16_t Count() const;
  void Clear() { strings_.Clear(); }
  std::vector<std::string> CStrings() const { return strings_.Keys(); }
  /// Whether this exact text, untrimmed, is in the list.
  bool Exists(const std::string& CommunityString) const {
    return strings_.Find(CommunityString) != nullptr;
  }
  /// Loads from the store.
  void Refresh();
  /// Writes the first 200 to the store, in place of what is there; a list that has not changed
  /// since it was loaded or written leaves alone what others have written meanwhile.
  void Sync() { stored_.Save(CStrings()); }

 private:
  StoredList stored_;
  KeyedList<std::string> strings_;
};

}  // namespace sentrel
