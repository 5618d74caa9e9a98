#include "desktop/table/frame_pacer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sentrel {
namespace {

constexpr qint64 kShortestInterval = 16;  // milliseconds
constexpr qint64 kLongestInterval = 500;
/// From this many requests a second on, frames are as rare as they get.
constexpr double kMostRequests = 20'000;

}  // namespace

std::chrono::milliseconds FrameInterval(double requestsPerSecond) {
  const qint64 interval = qRound64(kLongestInterval * std::sqrt(requestsPerSecond / kMostRequests));
  return std::chrono::milliseconds(std::clamp(interval, kShortestInterval, kLongestInterval));
}

FramePacer::FramePacer(std::function<void()> frame) : frame_(std::move(frame)) {
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
  const qint64 elapsed = sinceLast_.isValid() ? sinceLast_.elapsed() : 0;
  const double seconds = static_cast<double>(std::max(elapsed, kShortestInterval)) / 1000;
  interval_ = FrameInterval(std::exchange(requests_, 0) / seconds).count();
  sinceLast_.start();
  frame_();
}

}  // namespace sentrel
