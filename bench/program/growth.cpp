#include <cstdio>
#include <cstdlib>
#include <string>

#include "benchmarks.h"
#include "process_time.h"
#include "stage.h"

namespace sentrel::bench {
namespace {

constexpr std::uint32_t kRate = 20'000;

/// Traps enough for a steady figure, in about the same time however large they are.
StormPlan PlanFor(std::uint32_t bindings) {
  const std::uint32_t rate = bindings < 20 ? kRate : kRate / 10;
  return {.count = 3 * rate, .rate = rate};
}

void Bindings(Stage& stage) {
  for (const bool logging : {false, true}) {
    stage.SetLogging(logging);
    std::printf("Processor time as bindings grow, log %s\n", logging ? "on" : "off");
    for (const std::uint32_t count : {1U, 10U, 100U}) {
      const double cost = stage.CostOf(PlanFor(count), WithBindings(count));
      std::printf("  %7u  %8.2f us a trap  %6.2f us a binding\n", count, cost, cost / count);
    }
  }
  stage.SetLogging(false);
}

void Filters(Stage& stage) {
  Settings& options = stage.TheProgram().Options();
  std::printf("Processor time as filters grow, the last of which holds the sender\n");
  options.SetDeviceFilterActive(true);
  for (const int count : {1, 10, 100, 200}) {
    options.DeviceFilters()->Clear();
    for (int i = 1; i < count; ++i) {
      options.DeviceFilters()->AddFilter("10.0." + std::to_string(i) + ".0/24");
    }
    options.DeviceFilters()->AddFilter("127.0.0.1");
    std::printf("  %7d  %8.2f us a trap\n", count, stage.CostOf(PlanFor(6)));
  }
  options.SetDeviceFilterActive(false);
}

/// With the log on, since each OID is then looked up.
void DistinctOids(Stage& stage) {
  stage.SetLogging(true);
  std::printf("Processor time as distinct OIDs grow, log on\n");
  for (const std::uint32_t count : {10U, 1'000U, 100'000U, 1'000'000U}) {
    const double cost = stage.CostOf({.count = 200'000, .rate = kRate}, WithDistinctOids(count));
    std::printf("  %7u  %8.2f us a trap\n", count, cost);
  }
  stage.SetLogging(false);
}

void Memory(Stage& stage) {
  constexpr std::uint32_t kFew = 100'000;
  constexpr std::uint32_t kMany = 10'000'000;
  stage.Weather({.count = kFew, .rate = kRate});
  const auto few = static_cast<double>(OwnMemory());
  stage.Weather({.count = kMany - kFew, .rate = 5 * kRate});
  const auto many = static_cast<double>(OwnMemory());
  std::printf("Memory after %u traps %.1f MB, after %u traps %.1f MB: ratio %.2f (goal: 1)\n", kFew,
              few / 1e6, kMany, many / 1e6, many / few);
}

}  // namespace

int RunGrowth() {
  Stage stage;
  stage.WarmUp();
  Memory(stage);
  Bindings(stage);
  Filters(stage);
  DistinctOids(stage);
  return EXIT_SUCCESS;
}

}  // namespace sentrel::bench
