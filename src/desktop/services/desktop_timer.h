#pragma once

#include <QTimer>
#include <chrono>
#include <functional>

#include "common/coarse_clock.h"
#include "platform/timer.h"

namespace sentrel {

/// Beginning a new interval is cheap: the toolkit's timer is left to run, and started again only
/// when it expires too early. Used on the event loop only.
class DesktopTimer : public Timer {
 public:
  void Setup(std::chrono::milliseconds interval, std::function<void()> onExpiry) override;
  void SetEnabled(bool enabled) override;

 private:
  void OnTimeout();

  QTimer timer_;
  std::chrono::milliseconds interval_{};
  std::function<void()> onExpiry_;
  CoarseClock::time_point begun_;
  bool enabled_ = false;
};

}  // namespace sentrel
