// What the program pays for its names. The image is SENTREL_IMAGE, one that `sentrel-mib compile
// -o` has written; SENTREL_OIDS is a file of known OIDs, one a line. "of_bound" is the time over
// the bound that the program promises: 3 microseconds for a name that is not cached, 10
// milliseconds for opening the image; at most 1 is good.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "mib/image.h"
#include "mib/library.h"

namespace {

using sentrel::mib::Image;
using sentrel::mib::Library;

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::vector<std::string> ReadOids() {
  std::vector<std::string> oids;
  std::ifstream file(Variable("SENTREL_OIDS"));
  for (std::string line; std::getline(file, line);) oids.push_back(line + ".0");
  return oids;
}

/// Relates the time of one turn to a bound in seconds.
void SetBound(benchmark::State& state, double seconds) {
  state.counters["of_bound"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * seconds,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void OpenImage(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Image::Open(Variable("SENTREL_IMAGE")));
  SetBound(state, 10e-3);
}

/// All that a missing entry of the OID cache costs, over OIDs in an order that no cache likes.
void NameOfKnownOid(benchmark::State& state) {
  const auto oids = ReadOids();
  if (oids.empty()) return state.SkipWithError("SENTREL_OIDS names no file of OIDs");
  Library library({Variable("SENTREL_IMAGE"), {}, "", std::chrono::hours(1)}, [] {});
  size_t at = 0;
  for (auto _ : state) {
    const auto object = library.MakeOIDObject();
    object->SetOID(oids[at]);
    benchmark::DoNotOptimize(object->Name().size());
    benchmark::DoNotOptimize(object->EnumerationName(1));
    at = (at + 7919) % oids.size();
  }
  SetBound(state, 3e-6);
}

BENCHMARK(OpenImage)->Unit(benchmark::kMillisecond);
BENCHMARK(NameOfKnownOid)->Unit(benchmark::kMicrosecond);

}  // namespace
