#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "benchmarks.h"
#include "stage.h"

namespace sentrel::bench {
namespace {

constexpr char kFolder[] = "SENTREL_BENCH_FOLDER";

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
  constexpr int kTurns = 21;
  const QTemporaryDir folder;
  qputenv(kFolder, folder.path().toUtf8());
  // The first start makes the folder's files.
  MillisecondsOf("start-program");
  std::vector<double> bare;
  std::vector<double> ours;
  for (int turn = 0; turn < kTurns; ++turn) {
    bare.push_back(MillisecondsOf("start-bare-window"));
    ours.push_back(MillisecondsOf("start-program"));
  }
  std::printf("Start, medians of %d turns in alternation\n", kTurns);
  std::printf("  bare window               %6.1f ms\n", Median(bare));
  std::printf("  Sentrel, until it listens %6.1f ms, %.2f times (goal: under 1.3)\n", Median(ours),
              Median(ours) / Median(bare));
  return EXIT_SUCCESS;
}

int StartBareWindow() {
  QMainWindow window;
  window.setCentralWidget(new QLabel("ready"));
  window.menuBar()->addMenu("File")->addAction("Exit");
  window.resize(900, 600);
  window.show();
  return SayReady();
}

int StartProgram() {
  Program program(OptionsIn(qEnvironmentVariable(kFolder)));
  if (!program.Start()) return EXIT_FAILURE;
  return SayReady();
}

}  // namespace sentrel::bench
