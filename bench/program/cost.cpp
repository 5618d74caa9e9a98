#include <QCoreApplication>
#include <QProcess>
#include <cstdio>
#include <cstdlib>

#include "bare_path.h"
#include "benchmarks.h"
#include "median.h"
#include "peer.h"
#include "process_time.h"
#include "stage.h"

namespace sentrel::bench {
namespace {

constexpr std::uint32_t kRate = 20'000;
constexpr StormPlan kPlan{.count = 3 * kRate, .rate = kRate};
/// The peer loses traps at kRate; a trap costs it the same at any rate.
constexpr std::uint32_t kPeerRate = 4'000;
constexpr StormPlan kPeerPlan{.count = 3 * kPeerRate, .rate = kPeerRate};
constexpr int kTurns = 5;

double PeerCost() {
  const std::uint16_t port = FreePort();
  const Peer peer(port);
  const double before = peer.Seconds();
  Storm(port, kPeerPlan).Await();
  peer.Settle();
  return (peer.Seconds() - before) * 1e6 / static_cast<double>(peer.Received());
}

double BareCost() {
  QProcess bare;
  bare.start(QCoreApplication::applicationFilePath(), {"bare-cost"});
  if (!bare.waitForFinished()) std::abort();
  return bare.readAllStandardOutput().trimmed().toDouble();
}

/// Microseconds a trap, turn by turn, so that what else the machine does weighs on all alike.
struct Costs {
  std::vector<double> bare, peer, quiet, logged;
};

void Print(const char* name, const std::vector<double>& costs) {
  std::printf("  %-22s %7.2f us\n", name, Median(costs));
}

void PrintRatio(const char* name, const std::vector<double>& of, const std::vector<double>& to,
                const char* goal) {
  std::printf("  %-38s %6.2f (goal: %s)\n", name, MedianRatio(of, to), goal);
}

}  // namespace

int RunBareCost() {
  const BarePath path;
  const double before = OwnSeconds();
  Storm(path.Port(), kPlan).Await();
  path.Settle();
  std::printf("%f\n", (OwnSeconds() - before) * 1e6 / static_cast<double>(path.Accepted()));
  return EXIT_SUCCESS;
}

int RunCost() {
  if (!Peer(FreePort()).Runs()) {
    std::printf("snmptrapd is not installed: no comparison\n");
    return EXIT_FAILURE;
  }
  Stage stage;
  stage.WarmUp();
  Costs costs;
  for (int turn = 0; turn < kTurns; ++turn) {
    costs.peer.push_back(PeerCost());
    costs.bare.push_back(BareCost());
    stage.SetLogging(false);
    costs.quiet.push_back(stage.CostOf(kPlan));
    stage.SetLogging(true);
    costs.logged.push_back(stage.CostOf(kPlan));
  }
  std::printf(
      "Processor time a trap of six bindings at %u traps/s (snmptrapd: %u), medians of %d "
      "turns\n",
      kRate, kPeerRate, kTurns);
  Print("snmptrapd", costs.peer);
  Print("bare receive path", costs.bare);
  Print("Sentrel, log off", costs.quiet);
  Print("Sentrel, log on", costs.logged);
  PrintRatio("snmptrapd to Sentrel, log off", costs.peer, costs.quiet, "at least 20");
  PrintRatio("snmptrapd to Sentrel, log on", costs.peer, costs.logged, "at least 6");
  PrintRatio("Sentrel, log off, to the bare path", costs.quiet, costs.bare, "at most 2");
  return EXIT_SUCCESS;
}

}  // namespace sentrel::bench
