#include "desktop/table/frame_pacer.h"

#include <algorithm>
#include <utility>

namespace sentrel {
namespace {

constexpr qint64 kShortestInterval = 16;  // milliseconds
constexpr qint64 kLongestInterval = 200;

}  // namespace

FramePacer::FramePacer(std::function<void()> frame)
    : frame_(std::move(frame)), interval_(kShortestInterval) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, [this] { RunFrame(); });
}

void FramePacer::Request() {
  ++requests_;
  if (timer_.isActive()) return;
  const qint64 elapsed = sinceLast_.isValid() ? sinceLast_.elapsed() : interval_;
  timer_.start(static_cast<int>(std::max<qint64>(0, interval_ - elapsed)));
}

void FramePacer::RunFrame() {
  // A millisecond for each request.
  interval_ = std::clamp<qint64>(std::exchange(requests_, 0), kShortestInterval, kLongestInterval);
  sinceLast_.start();
  frame_();
}

}  // namespace sentrel
