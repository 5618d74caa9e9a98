#include <cstdio>
#include <cstdlib>

#include "benchmarks.h"
#include "stage.h"

namespace sentrel::bench {

int RunBurst() {
  constexpr std::uint32_t kBurst = 200'000;
  Stage stage;
  stage.WarmUp();
  for (const bool logging : {false, true}) {
    stage.SetLogging(logging);
    const std::uint64_t before = stage.Accepted();
    stage.Weather({.count = kBurst, .rate = 0});
    const std::uint64_t lost = kBurst - (stage.Accepted() - before);
    std::printf("Burst of %u traps, log %s: %ju lost (goal: none)\n", kBurst,
                logging ? "on" : "off", static_cast<std::uintmax_t>(lost));
  }
  return EXIT_SUCCESS;
}

}  // namespace sentrel::bench
