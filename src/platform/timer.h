#pragma once

#include <chrono>
#include <functional>

namespace sentrel {

/// A repeating timer of the event loop, off when made. Never throws.
class Timer {
 public:
  virtual ~Timer() = default;
  /// Sets what an expiry runs, on the event loop, and the time between expiries.
  virtual void Setup(std::chrono::milliseconds interval, std::function<void()> onExpiry) = 0;
  /// Turning an enabled timer off and on again begins a whole new interval.
  virtual void SetEnabled(bool enabled) = 0;
};

}  // namespace sentrel
