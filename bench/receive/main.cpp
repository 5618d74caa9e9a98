// The bare receive path: from the socket to OnTrap, with an observer that does nothing. Prints the
// processor time a trap costs, against a bound, and what is lost at which rate.

#include <cstdio>

#include "bare_path.h"
#include "process_time.h"
#include "storm.h"

namespace sentrel::bench {
namespace {

constexpr double kBoundMicroseconds = 5;
/// What a system gives to an ordinary user where nobody has raised net.core.rmem_max.
constexpr int kSmallBuffer = 208 << 10;

void Measure(const BarePath& path, std::uint32_t rate, std::uint32_t count) {
  const std::uint64_t accepted = path.Accepted();
  const double before = OwnSeconds();
  Storm storm(path.Port(), {count, rate});
  storm.Await();
  path.Settle();
  const auto arrived = static_cast<double>(path.Accepted() - accepted);
  const double each = (OwnSeconds() - before) / arrived * 1e6;
  std::printf("%9u  %9.0f  %6.2f us  %5.2f x bound  %7.3f %% lost\n", rate, storm.Rate(), each,
              each / kBoundMicroseconds, 100 * (1 - arrived / count));
}

void Main() {
  std::printf("bound: %.0f us of processor time a trap\n", kBoundMicroseconds);
  std::printf("%9s  %9s\n", "asked/s", "sent/s");
  const BarePath path;
  for (const std::uint32_t rate : {1'000, 5'000, 20'000, 60'000, 100'000, 0}) {
    Measure(path, rate, rate == 0 ? 400'000 : 3 * rate);
  }
}

void OfAnOrdinaryUser() {
  std::printf("with a buffer of %d KB\n", kSmallBuffer >> 10);
  const BarePath path("", kSmallBuffer);
  for (const std::uint32_t rate : {5'000, 20'000, 40'000}) Measure(path, rate, 10 * rate);
}

}  // namespace
}  // namespace sentrel::bench

int main() {
  sentrel::bench::Main();
  sentrel::bench::OfAnOrdinaryUser();
}
