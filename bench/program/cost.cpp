#include <cstdio>
#include <cstdlib>

#include "bare_path.h"
#include "benchmarks.h"
#include "peer.h"
#include "process_time.h"
#include "stage.h"

namespace sentrel::bench {
namespace {

constexpr std::uint32_t kRate = 20'000;
constexpr StormPlan kPlan{.count = 5 * kRate, .rate = kRate};
/// The peer loses traps at kRate; a trap costs it the same at any rate.
constexpr std::uint32_t kPeerRate = 4'000;
constexpr StormPlan kPeerPlan{.count = 5 * kPeerRate, .rate = kPeerRate};

/// Microseconds a trap; 0 where the peer cannot be had.
double PeerCost() {
  const std::uint16_t port = FreePort();
  const Peer peer(port);
  if (!peer.Runs()) return 0;
  const double before = peer.Seconds();
  Storm(port, kPeerPlan).Await();
  peer.Settle();
  return (peer.Seconds() - before) * 1e6 / static_cast<double>(peer.Received());
}

double BareCost() {
  const BarePath path;
  const double before = OwnSeconds();
  Storm(path.Port(), kPlan).Await();
  path.Settle();
  return (OwnSeconds() - before) * 1e6 / static_cast<double>(path.Accepted());
}

}  // namespace

int RunCost() {
  std::printf("Processor time a trap of six bindings, %u traps/s\n", kRate);
  const double bare = BareCost();
  const double peer = PeerCost();
  Stage stage;
  stage.WarmUp();
  const double quiet = stage.CostOf(kPlan);
  stage.SetLogging(true);
  const double logged = stage.CostOf(kPlan);
  std::printf("  bare receive path     %7.2f us\n", bare);
  std::printf("  snmptrapd             %7.2f us (at %u traps/s)\n", peer, kPeerRate);
  std::printf("  Sentrel, log off      %7.2f us  %5.2f x the bare path (goal: at most 2)\n", quiet,
              quiet / bare);
  std::printf("  Sentrel, log on       %7.2f us\n", logged);
  if (peer == 0) {
    std::printf("  snmptrapd is not installed: no comparison\n");
    return EXIT_FAILURE;
  }
  std::printf("  snmptrapd / log off   %7.1f     (goal: at least 20)\n", peer / quiet);
  std::printf("  snmptrapd / log on    %7.1f     (goal: at least 6)\n", peer / logged);
  return EXIT_SUCCESS;
}

}  // namespace sentrel::bench
