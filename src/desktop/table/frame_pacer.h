#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

namespace sentrel {

/// Turns any number of requests into at most one frame per interval. The first request after a
/// quiet time is served at once, so that a single trap shows without delay. The interval is that of
/// 60 frames a second, and grows with the square root of the rate of requests: nobody reads a table
/// that changes so fast. At 1,000 requests a second it is a ninth of a second, from 20,000 on half
/// a second.
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
  qint64 interval_;
};

}  // namespace sentrel
