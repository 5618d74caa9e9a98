#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "benchmarks.h"
#include "stage.h"

namespace sentrel::bench {
namespace {

/// Milliseconds from the start of a process to its first output.
double MillisecondsOf(const char* start) {
  QProcess process;
  QElapsedTimer timer;
  timer.start();
  process.start(QApplication::applicationFilePath(), {start});
  if (!process.waitForReadyRead()) std::abort();
  const auto taken = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  process.waitForFinished();
  return taken;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

int SayReady() {
  QTimer::singleShot(0, [] {
    std::puts("ready");
    QApplication::quit();
  });
  return QApplication::exec();
}

}  // namespace

int RunStart() {
  constexpr int kTurns = 15;
  std::vector<double> bare;
  std::vector<double> ours;
  for (int turn = 0; turn < kTurns; ++turn) {
    bare.push_back(MillisecondsOf("start-bare-window"));
    ours.push_back(MillisecondsOf("start-program"));
  }
  std::printf("Start, medians of %d turns in alternation\n", kTurns);
  std::printf("  bare window              %6.1f ms\n", Median(bare));
  std::printf("  Sentrel, until it listens %5.1f ms, %.2f times (goal: under 1.3)\n", Median(ours),
              Median(ours) / Median(bare));
  return EXIT_SUCCESS;
}

int StartBareWindow() {
  QWidget window;
  window.resize(900, 600);
  window.show();
  return SayReady();
}

int StartProgram() {
  const Stage stage;
  return SayReady();
}

}  // namespace sentrel::bench
