#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace sentrel {

/// Items under text keys, in order of insertion. Keys compare exactly.
template <typename Item>
class KeyedList {
 public:
  /// Adds at the end, unless the key is there. Returns the item that the list now holds.
  const Item& Add(const std::string& key, Item item) {
    const auto [place, isNew] = places_.try_emplace(key, entries_.size());
    if (isNew) entries_.emplace_back(key, std::move(item));
    return entries_[place->second].second;
  }

  /// Null if there is none. Valid until the list changes.
  const Item* Find(const std::string& key) const {
    const auto place = places_.find(key);
    return place == places_.end() ? nullptr : &entries_[place->second].second;
  }

  /// A missing key is no fault.
  void Remove(const std::string& key) {
    const auto place = places_.find(key);
    if (place == places_.end()) return;
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(place->second));
    for (auto& [other, index] : places_)
      if (index > place->second) --index;
    places_.erase(place);
  }

  void Clear() {
    entries_.clear();
    places_.clear();
  }

  std::vector<std::string> Keys() const {
    std::vector<std::string> keys;
    keys.reserve(entries_.size());
    for (const auto& [key, item] : entries_) keys.push_back(key);
    return keys;
  }

  std::size_t Count() const { return entries_.size(); }
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

 private:
  std::vector<std::pair<std::string, Item>> entries_;
  std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace sentrel
