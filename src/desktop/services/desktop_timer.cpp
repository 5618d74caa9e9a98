#include "desktop/services/desktop_timer.h"

namespace sentrel {

void DesktopTimer::Setup(std::chrono::milliseconds interval, std::function<void()> onExpiry) {
  interval_ = interval;
  onExpiry_ = std::move(onExpiry);
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, [this] { OnTimeout(); });
}

void DesktopTimer::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (!enabled) return;
  begun_ = CoarseClock::now();
  if (!timer_.isActive()) timer_.start(interval_);
}

void DesktopTimer::OnTimeout() {
  using std::chrono::milliseconds;
  if (!enabled_) return;
  const auto elapsed = CoarseClock::now() - begun_;
  const auto rest = std::chrono::ceil<milliseconds>(interval_ - elapsed);
  if (rest > milliseconds::zero()) return timer_.start(rest);
  SetEnabled(true);
  onExpiry_();
}

}  // namespace sentrel
