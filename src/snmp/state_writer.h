#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace sentrel {

/// Writes what must outlive a crash a moment after it changed, and then at most once in ten
/// seconds, on a thread of its own: the receiver must not wait for a disk.
///
/// Changed may be called on any thread and costs next to nothing; the function runs on this
/// object's thread alone.
class StateWriter {
 public:
  /// `write` must not throw.
  explicit StateWriter(std::function<void()> write);
  /// Does not write any more.
  ~StateWriter();
  StateWriter(const StateWriter&) = delete;
  StateWriter& operator=(const StateWriter&) = delete;

  void Changed();

 private:
  using Clock = std::chrono::steady_clock;

  void Run();
  /// False where the end has come first.
  bool WaitUntil(Clock::time_point moment);

  const std::function<void()> write_;
  std::atomic<bool> changed_ = false;
  std::mutex mutex_;
  std::condition_variable woken_;
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace sentrel
