#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <vector>

namespace sentrel::mib {

inline constexpr size_t kHugePage = 2 * 1024 * 1024;

/// Asks for huge pages for the whole ones within a range that has not been touched yet. A hint:
/// where it is refused, small pages do.
inline void AskForHugePages(void* place, size_t size) {
  const auto begin = reinterpret_cast<std::uintptr_t>(place);
  const auto first = (begin + kHugePage - 1) / kHugePage * kHugePage;
  const auto last = (begin + size) / kHugePage * kHugePage;
  if (first < last) madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
}

/// Memory of a huge page or more comes in huge pages where the system has them: touched first, it
/// costs one fault for each 2 megabytes rather than for each 4 kilobytes.
template <typename T>
struct HugePageAllocator {
  using value_type = T;

  HugePageAllocator() = default;
  template <typename Other>
  HugePageAllocator(const HugePageAllocator<Other>& /*other*/) {}

  /// Throws std::bad_alloc.
  T* allocate(size_t count) {
    size_t size = count * sizeof(T);
    void* place = nullptr;
    if (size < kHugePage) {
      place = std::malloc(size);
    } else {
      size = (size + kHugePage - 1) / kHugePage * kHugePage;
      place = std::aligned_alloc(kHugePage, size);
      if (place != nullptr) AskForHugePages(place, size);
    }
    if (place == nullptr) throw std::bad_alloc();
    return static_cast<T*>(place);
  }
  void deallocate(T* place, size_t /*count*/) { std::free(place); }

  bool operator==(const HugePageAllocator&) const = default;
};

/// For lists that grow to megabytes.
template <typename T>
using BigVector = std::vector<T, HugePageAllocator<T>>;

}  // namespace sentrel::mib
