#include "desktop/table/frame_pacer.h"

#include <algorithm>
#include <utility>

namespace sentrel {
namespace {

constexpr qint64 kFrameMilliseconds = 16;  // 60 Hz

}  // namespace

FramePacer::FramePacer(std::function<void()> frame) : frame_(std::move(frame)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, [this] { RunFrame(); });
}

void FramePacer::Request() {
  if (timer_.isActive()) return;
  const qint64 elapsed = sinceLast_.isValid() ? sinceLast_.elapsed() : kFrameMilliseconds;
  timer_.start(static_cast<int>(std::max<qint64>(0, kFrameMilliseconds - elapsed)));
}

void FramePacer::RunFrame() {
  sinceLast_.start();
  frame_();
}

}  // namespace sentrel
