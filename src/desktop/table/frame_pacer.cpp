#include "desktop/table/frame_pacer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sentrel {
namespace {

constexpr qint64 kShortestInterval = 16;  // milliseconds
constexpr qint64 kLongestInterval = 500;
/// At 20 requests a millisecond frames are as rare as they get.
constexpr double kMostRequests = 20;

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
  const double elapsed = sinceLast_.isValid() ? static_cast<double>(sinceLast_.elapsed()) : 0;
  const double rate = std::exchange(requests_, 0) / std::max<double>(elapsed, kShortestInterval);
  interval_ = std::clamp(qRound64(kLongestInterval * std::sqrt(rate / kMostRequests)),
                         kShortestInterval, kLongestInterval);
  sinceLast_.start();
  frame_();
}

}  // namespace sentrel
