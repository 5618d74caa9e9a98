#include "stage.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <cstdlib>

#include "process_time.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;

ProgramOptions WithoutTips(const ProgramOptions& options) {
  ForgoTips(options);
  return options;
}

}  // namespace

ProgramOptions OptionsIn(const QString& folder) {
  return {.port = 0,
          .machineFolder = (folder + "/machine").toStdString(),
          .userFolder = (folder + "/user").toStdString()};
}

void ForgoTips(const ProgramOptions& options) {
  const SystemClock clock;
  SqliteRegistry registry(options.machineFolder / kRegistryFile, options.userFolder / kRegistryFile,
                          clock);
  SetTipsAtStart(RegistrySupport(registry), false);
}

Stage::Stage() : program_(WithoutTips(OptionsIn(folder_.path()))) {
  std::string log = folder_.filePath("traps.log").toStdString();
  program_.Options().SetLogFilename(log);
  if (!program_.Start()) std::abort();
}

void Stage::SetLogging(bool on) {
  program_.Options().SetLoggingEnabled(on);
}

void Stage::Play(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, &loop, &QEventLoop::quit);
  loop.exec();
}

void Stage::Settle() {
  std::uint64_t before = 0;
  do {
    before = program_.Listener().Counters().Received();
    Play(200ms);
  } while (program_.Listener().Counters().Received() != before ||
           program_.Listener().Waiting() > 0);
}

double Stage::Weather(const StormPlan& plan, const Datagrams& datagrams) {
  Storm storm(Port(), plan, datagrams);
  while (storm.Rages()) Play(50ms);
  Settle();
  return storm.Rate();
}

double Stage::CostOf(const StormPlan& plan, const Datagrams& datagrams) {
  const std::uint64_t accepted = Accepted();
  const double before = OwnSeconds();
  Weather(plan, datagrams);
  return (OwnSeconds() - before) * 1e6 / static_cast<double>(Accepted() - accepted);
}

}  // namespace sentrel::bench
