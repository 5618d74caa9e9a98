#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>

#include "datagrams.h"

namespace sentrel::bench {

/// What is sent, `rate` traps a second (0 for as fast as the system takes them).
struct StormPlan {
  std::uint32_t count;
  std::uint32_t rate;
};

/// Sends traps to a UDP port of this machine from a process of its own, so that the sender's work
/// is not counted as the receiver's.
class Storm {
 public:
  Storm(std::uint16_t port, const StormPlan& plan, const Datagrams& datagrams = LinkDown());
  ~Storm() { Await(); }
  Storm(const Storm&) = delete;
  Storm& operator=(const Storm&) = delete;

  /// Whether there is still something to send.
  bool Rages();
  /// Returns when all is sent.
  void Await();
  /// Traps a second that were really sent, once all are: a sender has its limits, too.
  double Rate() const { return count_ / seconds_.count(); }

 private:
  void End(int status);

  const std::uint32_t count_;
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::chrono::duration<double> seconds_{};
  pid_t sender_;
};

}  // namespace sentrel::bench
