#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>
#include <utility>
#include <vector>

#include "benchmarks.h"
#include "stage.h"
#include "watched_application.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t kRate = 20'000;
constexpr int kSamples = 200;
constexpr double kGoal = 50;  // milliseconds

/// What is done to the window, on its event loop or from outside, and which widget's painting shows
/// that it was.
struct Action {
  std::function<void()> act;
  std::function<bool(const QObject&)> shows;
  bool fromOutside = false;
};

/// Acts from a thread of its own, at moments that the event loop cannot foresee, and takes the
/// time until the result is painted.
class User {
 public:
  User(WatchedApplication& application, Action action)
      : application_(application), action_(std::move(action)) {
    application_.delivered = [this](const QObject& receiver, QEvent::Type type, bool outermost) {
      if (waiting_ && type == QEvent::Paint && action_.shows(receiver)) painted_ = true;
      if (outermost && std::exchange(painted_, false)) Finish();
    };
  }
  ~User() { application_.delivered = nullptr; }
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  /// Milliseconds of each sample, sorted. `between` runs on the event loop after each.
  std::vector<double> Act(const std::function<void()>& between) {
    std::mt19937 random(9);
    for (int i = 0; i < kSamples; ++i) {
      const std::chrono::milliseconds pause(20 + random() % 60);
      std::thread hand([&] {
        std::this_thread::sleep_for(pause);
        begin_ = Clock::now();
        const auto act = [this] {
          waiting_ = true;
          action_.act();
        };
        if (action_.fromOutside) return act();
        QMetaObject::invokeMethod(&application_, act, Qt::QueuedConnection);
      });
      loop_.exec();
      hand.join();
      between();
    }
    std::sort(times_.begin(), times_.end());
    return times_;
  }

 private:
  void Finish() {
    waiting_ = false;
    times_.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin_).count());
    loop_.quit();
  }

  WatchedApplication& application_;
  const Action action_;
  QEventLoop loop_;
  Clock::time_point begin_;
  std::atomic<bool> waiting_ = false;
  bool painted_ = false;
  std::vector<double> times_;
};

/// Moves the selection to the newest trap; in a storm it does not stay there.
Action PressHome(QWidget& table, const QObject& viewport) {
  return {[&table] {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Home, Qt::NoModifier);
            QCoreApplication::sendEvent(&table, &press);
          },
          [&viewport](const QObject& painted) { return &painted == &viewport; }};
}

Action ClickFirstMenu(QMenuBar& bar) {
  return {[&bar] {
            const QPointF place = bar.actionGeometry(bar.actions().front()).center();
            QMouseEvent press(QEvent::MouseButtonPress, place, bar.mapToGlobal(place),
                              Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&bar, &press);
          },
          [](const QObject& painted) { return painted.inherits("QMenu"); }};
}

Action SendTrap(std::uint16_t port, const QObject& viewport) {
  return {[port] { Storm(port, {.count = 1, .rate = 0}).Await(); },
          [&viewport](const QObject& painted) { return &painted == &viewport; }, true};
}

void Print(const char* what, const std::vector<double>& times) {
  const double high = times[times.size() * 99 / 100];
  std::printf("  %-38s median %5.1f ms  99th percentile %5.1f ms  %.2f x goal\n", what,
              times[times.size() / 2], high, high / kGoal);
}

}  // namespace

int RunResponse() {
  auto& application = *static_cast<WatchedApplication*>(QCoreApplication::instance());
  Stage stage;
  stage.WarmUp();
  QMainWindow& window = stage.TheProgram().Window();
  auto& table = *window.findChild<QAbstractScrollArea*>("Table");
  QMenuBar& menus = *window.menuBar();
  std::printf("Response without a storm\n");
  Print(
      "trap sent to row on screen",
      User(application, SendTrap(stage.Port(), *table.viewport())).Act([] { Stage::Play(50ms); }));
  Storm storm(stage.Port(), {.count = 60 * kRate, .rate = kRate});
  Stage::Play(1s);
  std::printf("Response at %u traps/s, %d samples (goal: 99th percentile under %.0f ms)\n", kRate,
              kSamples, kGoal);
  Print("key press to moved selection",
        User(application, PressHome(table, *table.viewport())).Act([] {}));
  Print("menu click to menu on screen", User(application, ClickFirstMenu(menus)).Act([&] {
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    Stage::Play(20ms);
  }));
  const bool raged = storm.Rages();
  if (!raged) std::printf("  the storm was over before the last sample\n");
  return raged ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace sentrel::bench
