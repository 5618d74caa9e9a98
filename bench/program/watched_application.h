#pragma once

#include <QApplication>
#include <functional>

namespace sentrel::bench {

/// An application that tells of each event that it has delivered.
class WatchedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  /// Runs behind each delivery. `outermost` says that it was not part of delivering another event:
  /// what was painted is on its way to the screen.
  std::function<void(const QObject& receiver, QEvent::Type type, bool outermost)> delivered;

  bool notify(QObject* receiver, QEvent* event) override {
    const QEvent::Type type = event->type();
    ++depth_;
    const bool result = QApplication::notify(receiver, event);
    --depth_;
    if (delivered) delivered(*receiver, type, depth_ == 0);
    return result;
  }

 private:
  int depth_ = 0;
};

}  // namespace sentrel::bench
