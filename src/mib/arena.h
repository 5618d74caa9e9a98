#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

#include "mib/huge_pages.h"

namespace sentrel::mib {

/// Keeps copies of texts and lists at fixed addresses until it ends. One thread at a time.
class Arena {
 public:
  /// A view of a copy of the text, valid as long as the arena.
  std::string_view Keep(std::string_view text) {
    if (text.empty()) return {};
    char* place = Take(text.size());
    std::memcpy(place, text.data(), text.size());
    return {place, text.size()};
  }

  /// A copy of the list, valid as long as the arena; of its elements, what a T holds.
  template <typename T, typename Element>
  std::span<T> KeepList(const std::vector<Element>& list) {
    static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= kAlignment);
    if (list.empty()) return {};
    char* place = Take(list.size() * sizeof(T) + kAlignment - 1);
    place += (kAlignment - reinterpret_cast<std::uintptr_t>(place) % kAlignment) % kAlignment;
    T* kept = reinterpret_cast<T*>(place);
    std::uninitialized_copy(list.begin(), list.end(), kept);
    return {kept, list.size()};
  }

 private:
  static constexpr size_t kAlignment = 8;

  struct Free {
    void operator()(char* block) const { std::free(block); }
  };

  char* Take(size_t size) {
    if (size > left_) Grow(size);
    char* place = next_;
    next_ += size;
    left_ -= size;
    return place;
  }

  void Grow(size_t atLeast) {
    left_ = std::max(atLeast, kHugePage);
    blocks_.emplace_back(HugePageAllocator<char>().allocate(left_));
    next_ = blocks_.back().get();
  }

  std::vector<std::unique_ptr<char[], Free>> blocks_;
  char* next_ = nullptr;
  size_t left_ = 0;
};

}  // namespace sentrel::mib
