#pragma once

#include <QTemporaryDir>
#include <chrono>
#include <cstdint>

#include "app/program.h"
#include "storm.h"

namespace sentrel::bench {

/// Options and state in the folder; any free port.
ProgramOptions OptionsIn(const QString& folder);
/// Has it stored in the folder that no tip is wanted at start.
void ForgoTips(const ProgramOptions& options);

/// The whole program with its window, on a free port, with options and a log file of its own.
/// Names are decoded and nothing is filtered, as when it is first started; the log is off.
class Stage {
 public:
  Stage();

  Program& TheProgram() { return program_; }
  std::uint16_t Port() const { return program_.Listener().Port(); }
  std::uint64_t Accepted() const { return program_.Listener().Counters().Of(Outcome::kAccepted); }
  void SetLogging(bool on);
  /// Gives the collection of modules time to be compiled, which is not what is measured.
  void WarmUp() { Weather({.count = 20'000, .rate = 10'000}); }

  /// Handles the window's events for so long.
  static void Play(std::chrono::milliseconds time);
  /// Sends a storm, and handles events until every trap that arrives is a row. Returns the rate
  /// that was really sent, in traps a second.
  double Weather(const StormPlan& plan, const Datagrams& datagrams = LinkDown());
  /// The same, and the processor time of this process for each trap that arrived, in
  /// microseconds.
  double CostOf(const StormPlan& plan, const Datagrams& datagrams = LinkDown());
  /// Handles events until nothing more arrives and none waits.
  void Settle();

 private:
  QTemporaryDir folder_;
  Program program_;
};

}  // namespace sentrel::bench
