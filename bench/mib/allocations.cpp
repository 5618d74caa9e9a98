#include "allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::int64_t> count = 0;

}  // namespace

std::int64_t Allocations() {
  return count.load(std::memory_order_relaxed);
}

void* operator new(std::size_t size) {
  count.fetch_add(1, std::memory_order_relaxed);
  void* place = std::malloc(size == 0 ? 1 : size);
  if (place == nullptr) throw std::bad_alloc();
  return place;
}

void operator delete(void* place) noexcept {
  std::free(place);
}

void operator delete(void* place, std::size_t /*size*/) noexcept {
  std::free(place);
}
