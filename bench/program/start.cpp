#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "benchmarks.h"
#include "median.h"
#include "stage.h"

namespace sentrel::bench {
namespace {

constexpr char kFolder[] = "SENTREL_BENCH_FOLDER";

/// Milliseconds from the start of a process to its first output.
double MillisecondsOf(const QString& program, const QStringList& arguments = {}) {
  QProcess process;
  QElapsedTimer timer;
  timer.start();
  process.start(program, arguments);
  if (!process.waitForReadyRead()) std::abort();
  const auto taken = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  process.waitForFinished();
  return taken;
}

double ProgramMilliseconds() {
  return MillisecondsOf(QApplication::applicationFilePath(), {"start-program"});
}

}  // namespace

int RunStart() {
  constexpr int kTurns = 21;
  const QTemporaryDir folder;
  qputenv(kFolder, folder.path().toUtf8());
  // The first start makes the folder's files.
  ProgramMilliseconds();
  const QString bareWindow = QApplication::applicationDirPath() + "/../bench/bare_window";
  std::vector<double> bare;
  std::vector<double> ours;
  for (int turn = 0; turn < kTurns; ++turn) {
    bare.push_back(MillisecondsOf(bareWindow));
    ours.push_back(ProgramMilliseconds());
  }
  std::printf("Start, medians of %d turns\n", kTurns);
  std::printf("  bare window               %6.1f ms\n", Median(bare));
  std::printf("  Sentrel, until it listens %6.1f ms, %.2f times (goal: under 1.3)\n", Median(ours),
              MedianRatio(ours, bare));
  return EXIT_SUCCESS;
}

int StartProgram() {
  Program program(OptionsIn(qEnvironmentVariable(kFolder)));
  if (!program.Start()) return EXIT_FAILURE;
  QTimer::singleShot(0, [] {
    std::puts("ready");
    QApplication::quit();
  });
  return QApplication::exec();
}

}  // namespace sentrel::bench
