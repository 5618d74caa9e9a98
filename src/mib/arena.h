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

/// Memory that is taken piece by piece and given back as a whole.
class Blocks {
 public:
  char* Take(size_t size) {
    if (size > left_) Grow(size);
    char* place = next_;
    next_ += size;
    left_ -= size;
    return place;
  }

 private:
  struct Free {
    void operator()(char* block) const { std::free(block); }
  };

  void Grow(size_t atLeast) {
    left_ = std::max(atLeast, kHugePage);
    blocks_.emplace_back(HugePageAllocator<char>().allocate(left_));
    next_ = blocks_.back().get();
  }

  std::vector<std::unique_ptr<char[], Free>> blocks_;
  char* next_ = nullptr;
  size_t left_ = 0;
};

/// Keeps copies of texts and lists at fixed addresses. One thread at a time.
class Arena {
 public:
  /// A view of a copy of the text, valid as long as the arena.
  std::string_view Keep(std::string_view text) {
    if (text.empty()) return {};
    char* place = kept_.Take(text.size());
    std::memcpy(place, text.data(), text.size());
    return {place, text.size()};
  }

  /// A copy of the list, valid as long as the arena; of its elements, what a T holds.
  template <typename T, typename Element>
  std::span<T> KeepList(const std::vector<Element>& list) {
    return CopyTo<T>(kept_, list);
  }

  /// The same, valid until DropLent.
  template <typename T, typename Element>
  std::span<T> LendList(const std::vector<Element>& list) {
    return CopyTo<T>(lent_, list);
  }
  void DropLent() { lent_ = {}; }

 private:
  static constexpr size_t kAlignment = 8;

  template <typename T, typename Element>
  static std::span<T> CopyTo(Blocks& blocks, const std::vector<Element>& list) {
    static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= kAlignment);
    if (list.empty()) return {};
    char* place = blocks.Take(list.size() * sizeof(T) + kAlignment - 1);
    place += (kAlignment - reinterpret_cast<std::uintptr_t>(place) % kAlignment) % kAlignment;
    T* copy = reinterpret_cast<T*>(place);
    std::uninitialized_copy(list.begin(), list.end(), copy);
    return {copy, list.size()};
  }

  Blocks kept_;
  Blocks lent_;
};

}  // namespace sentrel::mib
