#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>

namespace sentrel {

/// Runs a job on the event loop when another thread asks for it. Made and destroyed on the event
/// loop, where the job runs too; only Wake may be called on any thread, and not after destruction
/// has begun. No call of Wake is lost: the job begins at least once after it. At most one run is
/// posted at a time, however many threads ask.
class Wakeup : public QObject {
  Q_OBJECT
 public:
  /// The job runs once or more after each call of Wake, at once after a quiet time, else after a
  /// rest since it last ended. It returns whether it wants to run again without a rest, behind the
  /// events that wait already.
  explicit Wakeup(std::function<bool()> job, std::chrono::milliseconds rest = {});

  /// May be called on any thread.
  void Wake();

 private:
  void Post();
  void Run();
  void EndRest();

  static constexpr int kAsked = 1;
  static constexpr int kResting = 2;

  std::function<bool()> job_;
  const std::chrono::milliseconds rest_;
  QTimer resting_;
  /// 0 while idle. While the job rests, nothing is posted: the end of the rest sees who asked.
  std::atomic<int> state_ = 0;
};

/// Runs a job on the event loop when the system asks the process to end (SIGTERM, SIGINT, SIGHUP).
/// One at a time; made and destroyed on the event loop.
class EndRequest {
 public:
  explicit EndRequest(std::function<void()> job);
  ~EndRequest();
  EndRequest(const EndRequest&) = delete;
  EndRequest& operator=(const EndRequest&) = delete;

 private:
  int pipe_[2];
  std::unique_ptr<QSocketNotifier> notifier_;
};

/// Runs a job when the toolkit ends the process under the program's feet, as it does when the
/// display is gone. Nothing else is taken down then, because threads are still at work: the process
/// ends with EXIT_FAILURE as soon as the job is done. One at a time.
class ForcedEnd {
 public:
  explicit ForcedEnd(std::function<void()> job);
  ~ForcedEnd();
  ForcedEnd(const ForcedEnd&) = delete;
  ForcedEnd& operator=(const ForcedEnd&) = delete;
};

}  // namespace sentrel
