#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <chrono>
#include <functional>

namespace sentrel {

/// The shortest time between two frames: that of 60 frames a second at first, then growing with the
/// square root of the rate of requests, because nobody reads a table that changes so fast. At 1,000
/// requests a second it is a ninth of a second, from 20,000 on half a second.
std::chrono::milliseconds FrameInterval(double requestsPerSecond);

/// Turns any number of requests into at most one frame per interval (FrameInterval, by the rate of
/// the requests before the last frame). The first request after a quiet time is served at once, so
/// that a single trap shows without delay. No request is forgotten: a frame follows each, also one
/// that is made while a frame runs. Used on the event loop only.
class FramePacer {
 public:
  /// Runs the frame on the event loop.
  explicit FramePacer(std::function<void()> frame);

  void Request();

 private:
  void RunFrame();

  std::function<void()> frame_;
  QTimer timer_;
  QElapsedTimer sinceLast_;
  int requests_ = 0;
  qint64 interval_ = 0;  // milliseconds
};

}  // namespace sentrel
