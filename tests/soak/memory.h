#pragma once

#include <malloc.h>
#include <unistd.h>

#include <cstddef>
#include <fstream>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SENTREL_SANITIZED_HEAP 1
/// As the sanitizers' allocator declares it.
extern "C" std::size_t
__sanitizer_get_current_allocated_bytes();  // NOLINT(bugprone-reserved-identifier)
#endif

namespace sentrel {

/// Bytes that the program has taken from the heap and not given back.
inline std::size_t HeapInUse() {
#ifdef SENTREL_SANITIZED_HEAP
  return __sanitizer_get_current_allocated_bytes();
#else
  const auto all = mallinfo2();
  return all.uordblks + all.hblkhd;
#endif
}

/// Bytes in real memory, once the heap has given back what it can. A sanitizer holds on to freed
/// memory: there it is the heap in use.
inline std::size_t ResidentMemory() {
#ifdef SENTREL_SANITIZED_HEAP
  return HeapInUse();
#else
  malloc_trim(0);
  std::size_t all = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> all >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
#endif
}

}  // namespace sentrel
