// What the program pays for its names. SENTREL_IMAGE is the built-in image; SENTREL_MIBS, if that
// is set, a folder of a user's modules, whose image is kept in the file SENTREL_CACHE; SENTREL_OIDS
// a file of known OIDs, one a line. "of_bound" is the time over the bound that the program
// promises: 1 microsecond for an OID in the cache, 3 for one that is not, 10 milliseconds for
// opening the image; at most 1 is good. "allocations" are those of one turn: 0 for an OID in the
// cache.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "allocations.h"
#include "decoding/decoder.h"
#include "mib/image.h"
#include "mib/library.h"
#include "platform/registry.h"
#include "settings/settings.h"

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

/// A store without values: all settings have their defaults.
class NoRegistry : public sentrel::Registry {
 public:
  using Root = sentrel::RegistryRoot;
  using Key = sentrel::RegistryKey;
  using Text = std::string;

  std::optional<Key> CreateKey(Root, const Text&) override { return {}; }
  std::optional<Key> OpenKey(Root, const Text&) override { return {}; }
  bool CloseKey(Key) override { return false; }
  std::optional<Text> QueryStringValue(Key, const Text&) override { return {}; }
  bool SetStringValue(Key, const Text&, const Text&) override { return false; }
  bool DeleteValue(Key, const Text&) override { return false; }
  void BeginBatch(sentrel::RegistryBatch) override {}
  bool EndBatch() override { return true; }
  bool IsUnreachable(Root, const Text&) const override { return false; }
};

/// The decoder of the program over the image.
class GetOID : public benchmark::Fixture {
 public:
  void SetUp(benchmark::State& state) override {
    oids_ = ReadOids();
    if (!Folders().empty()) isReady_.wait(false);
    library_.Adopt();
    if (oids_.empty()) state.SkipWithError("SENTREL_OIDS names no file of OIDs");
  }

 protected:
  /// Asks for OIDs in an order that no cache of a processor likes.
  void Ask(benchmark::State& state, size_t distinct, bool forget, double bound) {
    if (oids_.empty()) return;
    distinct = std::min(distinct, oids_.size());
    sentrel::Decoder decoder(library_, settings_);
    for (size_t i = 0; i < distinct && !forget; ++i) decoder.GetOID(oids_[i]);
    size_t at = 0;
    const std::int64_t before = Allocations();
    for (auto _ : state) {
      benchmark::DoNotOptimize(decoder.GetOID(oids_[at])->Name().data());
      at = (at + 7919) % distinct;
      if (forget) decoder.Forget();
    }
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(Allocations() - before),
                                                       benchmark::Counter::kAvgIterations);
    SetBound(state, bound);
  }

 private:
  std::vector<std::string> oids_;
  NoRegistry registry_;
  sentrel::Settings settings_{registry_};
  static std::vector<sentrel::mib::Folder> Folders() {
    const std::string folder = Variable("SENTREL_MIBS");
    return folder.empty() ? std::vector<sentrel::mib::Folder>()
                          : std::vector<sentrel::mib::Folder>{{folder, true}};
  }

  std::atomic<bool> isReady_ = false;
  Library library_{
      {Variable("SENTREL_IMAGE"), Folders(), Variable("SENTREL_CACHE"), std::chrono::hours(1)},
      [this] {
        isReady_ = true;
        isReady_.notify_all();
      }};
};

/// As many entries as the cache holds between two checks.
BENCHMARK_DEFINE_F(GetOID, Cached)(benchmark::State& state) {
  Ask(state, 1000, false, 1e-6);
}

BENCHMARK_DEFINE_F(GetOID, Uncached)(benchmark::State& state) {
  Ask(state, SIZE_MAX, true, 3e-6);
}

BENCHMARK(OpenImage)->Unit(benchmark::kMillisecond);
BENCHMARK_REGISTER_F(GetOID, Cached)->Unit(benchmark::kMicrosecond);
BENCHMARK_REGISTER_F(GetOID, Uncached)->Unit(benchmark::kMicrosecond);

}  // namespace
