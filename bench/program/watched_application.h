#pragma once

#include <QApplication>
#include <chrono>
#include <functional>

namespace sentrel::bench {

/// An application that tells of each event that it has delivered.
class WatchedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  using Clock = std::chrono::steady_clock;

  /// Runs behind each delivery. `outermost` says that it was not part of delivering another event:
  /// what was painted is on its way to the screen.
  std::function<void(const QObject& receiver, QEvent::Type type, bool outermost)> delivered;

  /// Milliseconds that the outermost event in delivery has taken so far.
  double Milliseconds() const {
    return std::chrono::duration<double, std::milli>(Clock::now() - begin_).count();
  }

  bool notify(QObject* receiver, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (depth_ == 0 && delivered) begin_ = Clock::now();
    ++depth_;
    const bool result = QApplication::notify(receiver, event);
    --depth_;
    if (delivered) delivered(*receiver, type, depth_ == 0);
    return result;
  }

 private:
  int depth_ = 0;
  Clock::time_point begin_;
};

}  // namespace sentrel::bench
