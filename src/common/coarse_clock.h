#pragma once

#include <chrono>
#include <ctime>

namespace sentrel {

/// A steady clock that costs next to nothing to read, and is up to some milliseconds behind.
struct CoarseClock {
  using duration = std::chrono::nanoseconds;
  using rep = duration::rep;
  using period = duration::period;
  using time_point = std::chrono::time_point<CoarseClock>;
  static constexpr bool is_steady = true;

  static time_point now() {
    std::timespec time{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
  }
};

}  // namespace sentrel
