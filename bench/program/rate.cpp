#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "benchmarks.h"
#include "peer.h"
#include "stage.h"

namespace sentrel::bench {
namespace {

constexpr std::uint32_t kSeconds = 10;

/// Sends a storm to a receiver. Returns the rate that was really sent, 0 where traps were lost.
using Trial = std::function<double(const StormPlan&)>;

/// The highest rate without loss, in traps a second: doubled up to the first loss or to what the
/// sender can do, then narrowed down to a twentieth.
double HighestRate(std::uint32_t first, const Trial& trial) {
  const auto sent = [&](std::uint32_t rate) {
    return trial({.count = kSeconds * rate, .rate = rate});
  };
  double best = 0;
  std::uint32_t high = first;
  for (double now = 0; (now = sent(high)) > 0; high *= 2) {
    best = now;
    if (now < 0.9 * high) return best;
  }
  for (std::uint32_t low = best == 0 ? 0 : high / 2; high - low > high / 20;) {
    const std::uint32_t middle = low + (high - low) / 2;
    const double now = sent(middle);
    best = std::max(best, now);
    (now > 0 ? low : high) = middle;
  }
  return best;
}

double PeerTrial(const StormPlan& plan) {
  const std::uint16_t port = FreePort();
  const Peer peer(port);
  Storm storm(port, plan);
  storm.Await();
  peer.Settle();
  return peer.Received() == plan.count ? storm.Rate() : 0;
}

}  // namespace

int RunRate() {
  std::printf("Highest rate without loss over %u s\n", kSeconds);
  if (!Peer(FreePort()).Runs()) {
    std::printf("  snmptrapd is not installed: no comparison\n");
    return EXIT_FAILURE;
  }
  const double peer = HighestRate(4'000, PeerTrial);
  std::printf("  snmptrapd  %7.0f traps/s\n", peer);
  Stage stage;
  stage.WarmUp();
  const double ours = HighestRate(64'000, [&](const StormPlan& plan) {
    const std::uint64_t before = stage.Accepted();
    const double sent = stage.Weather(plan);
    return stage.Accepted() - before == plan.count ? sent : 0;
  });
  std::printf("  Sentrel    %7.0f traps/s, %.1f times (goal: at least 12)\n", ours, ours / peer);
  return EXIT_SUCCESS;
}

}  // namespace sentrel::bench
