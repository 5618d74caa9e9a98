#include <QKeyEvent>
#include <QSplitter>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks.h"
#include "desktop/table/table_view.h"
#include "median.h"
#include "stage.h"
#include "watched_application.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;

constexpr double kFrame = 1'000.0 / 60;  // milliseconds
constexpr std::size_t kLongText = 60'000;

void Press(QWidget& widget, int key) {
  QCoreApplication::postEvent(&widget, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
}

/// Selects the row with the key, and returns for how long the window was held up at most, in
/// milliseconds, until all of its details were shown.
double Choose(WatchedApplication& application, TableView& view, int key) {
  double longest = 0;
  application.delivered = [&](const QObject&, QEvent::Type, bool outermost) {
    if (outermost) longest = std::max(longest, application.Milliseconds());
  };
  Press(view, key);
  Stage::Play(200ms);
  application.delivered = nullptr;
  return longest;
}

}  // namespace

int RunDetails() {
  const std::pair<const char*, Datagrams> traps[] = {
      {"six bindings", LinkDown()},
      {"one value of 60 KB", WithText(std::string(kLongText, 'w'))},
      {"5,000 bindings", WithEmptyBindings(5'000)},
  };
  constexpr int kTimes = 20;
  auto& application = *static_cast<WatchedApplication*>(QCoreApplication::instance());
  Stage stage;
  TableView& view = stage.TheProgram().Window().View();
  stage.TheProgram().Window().resize(1200, 900);
  stage.WarmUp();
  Press(view, Qt::Key_Return);
  Stage::Play(500ms);
  if (stage.TheProgram().Window().findChild<QSplitter*>("DetailsPanes") == nullptr) {
    std::printf("the details do not open\n");
    return EXIT_FAILURE;
  }
  std::printf("Choosing a trap while its details are shown (goal: a frame, %.1f ms)\n", kFrame);
  for (const auto& [name, trap] : traps) {
    Storm(stage.Port(), {.count = 1, .rate = 0}, trap).Await();
    Stage::Play(300ms);
    std::vector<double> times;
    for (int i = 0; i < kTimes; ++i) {
      Choose(application, view, Qt::Key_End);
      times.push_back(Choose(application, view, Qt::Key_Home));
    }
    const double most = *std::ranges::max_element(times);
    std::printf("  %-20s median %6.2f ms  longest %6.2f ms  %.2f x goal\n", name, Median(times),
                most, most / kFrame);
  }
  return EXIT_SUCCESS;
}

}  // namespace sentrel::bench
