#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "benchmarks.h"
#include "median.h"
#include "stage.h"
#include "watched_application.h"

namespace sentrel::bench {
namespace {

constexpr char kFolder[] = "SENTREL_BENCH_FOLDER";

/// Milliseconds from the start of a process to its first and to its last output.
struct Times {
  double first = 0;
  double last = 0;
};

Times TimesOf(const QString& program, const QStringList& arguments = {}) {
  QProcess process;
  QElapsedTimer timer;
  const auto taken = [&timer] { return static_cast<double>(timer.nsecsElapsed()) / 1e6; };
  timer.start();
  process.start(program, arguments);
  if (!process.waitForReadyRead()) std::abort();
  Times times{.first = taken(), .last = 0};
  while (!process.readAll().endsWith("ready\n")) process.waitForReadyRead();
  times.last = taken();
  process.waitForFinished();
  return times;
}

Times ProgramTimes() {
  return TimesOf(QApplication::applicationFilePath(), {"start-program"});
}

}  // namespace

int RunStart() {
  constexpr int kTurns = 21;
  const QTemporaryDir folder;
  qputenv(kFolder, folder.path().toUtf8());
  ForgoTips(OptionsIn(folder.path()));
  // The first start makes the folder's files.
  ProgramTimes();
  const QString bareWindow = QApplication::applicationDirPath() + "/../bench/bare_window";
  std::vector<double> bare;
  std::vector<double> listening;
  std::vector<double> shown;
  for (int turn = 0; turn < kTurns; ++turn) {
    bare.push_back(TimesOf(bareWindow).last);
    const Times ours = ProgramTimes();
    listening.push_back(ours.first);
    shown.push_back(ours.last);
  }
  const auto print = [&bare](const char* what, const std::vector<double>& times) {
    std::printf("  %-40s %6.1f ms, %.2f times\n", what, Median(times), MedianRatio(times, bare));
  };
  std::printf("Start, medians of %d turns (goal: listening under 1.3 times)\n", kTurns);
  print("bare window, shown and at work", bare);
  print("Sentrel, listening", listening);
  print("Sentrel, shown and at work", shown);
  return EXIT_SUCCESS;
}

int StartProgram() {
  Program program(OptionsIn(qEnvironmentVariable(kFolder)));
  auto& application = *static_cast<WatchedApplication*>(QCoreApplication::instance());
  bool told = false;
  // Told with the first of the window's events, which come when the program listens.
  application.delivered = [&](const QObject&, QEvent::Type, bool) {
    if (std::exchange(told, program.Listener().IsListening()) || !told) return;
    std::puts("listening");
  };
  const bool started = program.Start();
  application.delivered = nullptr;
  if (!started) return EXIT_FAILURE;
  QTimer::singleShot(0, [] {
    std::puts("ready");
    QApplication::quit();
  });
  return QApplication::exec();
}

}  // namespace sentrel::bench
