#include <QAbstractScrollArea>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks.h"
#include "median.h"
#include "stage.h"
#include "watched_application.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;

constexpr double kFrame = 1'000.0 / 60;  // milliseconds
constexpr std::size_t kLongText = 60'000;

std::string Repeated(const std::string& text) {
  std::string all;
  while (all.size() + text.size() <= kLongText) all += text;
  return all;
}

/// Sends traps one by one. Returns how long each painting of the table took, in milliseconds.
std::vector<double> Paint(WatchedApplication& application, const Stage& stage,
                          const QObject& viewport, const Datagrams& trap) {
  constexpr int kTraps = 60;
  std::vector<double> times;
  bool painted = false;
  application.delivered = [&](const QObject& receiver, QEvent::Type type, bool outermost) {
    if (type == QEvent::Paint && &receiver == &viewport) painted = true;
    if (outermost && std::exchange(painted, false)) times.push_back(application.Milliseconds());
  };
  for (int i = 0; i < kTraps; ++i) {
    Storm(stage.Port(), {.count = 1, .rate = 0}, trap).Await();
    Stage::Play(30ms);
  }
  application.delivered = nullptr;
  return times;
}

}  // namespace

int RunPainting() {
  const std::pair<const char*, Datagrams> traps[] = {
      {"six bindings", LinkDown()},
      {"one line of 60 KB", WithText(Repeated("wwww "))},
      {"60 KB without a blank", WithText(Repeated("w"))},
      {"60 KB of lines", WithText(Repeated("x\r\n"))},
      {"60 KB of marks on one letter", WithText(std::string("x").append(Repeated("\xcc\x81")))},
      {"60 KB of overrides of direction", WithText(Repeated("\xe2\x80\xae"
                                                            "ab"))},
      {"5,000 bindings", WithEmptyBindings(5'000)},
  };
  auto& application = *static_cast<WatchedApplication*>(QCoreApplication::instance());
  Stage stage;
  stage.WarmUp();
  const auto& table = *stage.TheProgram().Window().findChild<QAbstractScrollArea*>("Table");
  std::printf("Painting when a trap has come (goal: a frame, %.1f ms)\n", kFrame);
  for (const auto& [name, trap] : traps) {
    const std::vector<double> times = Paint(application, stage, *table.viewport(), trap);
    const double most = *std::max_element(times.begin(), times.end());
    std::printf("  %-32s median %6.2f ms  longest %6.2f ms  %.2f x goal\n", name, Median(times),
                most, most / kFrame);
  }
  return EXIT_SUCCESS;
}

}  // namespace sentrel::bench
