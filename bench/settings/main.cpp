// What a trap pays for 200 device filters, and what one change of the whole list costs against 200
// changes of one filter each. Prints both as ratios.

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "settings/device_filters.h"
#include "store/sqlite_registry.h"

namespace sentrel {
namespace {

constexpr int kFilters = 200;

class StillClock : public Clock {
 public:
  LocalTime Now() const override { return {}; }
};

/// A list over a store in a folder of its own, on the disk of the temporary folder.
class StoredFilters {
 public:
  StoredFilters() { Fill(0); }
  ~StoredFilters() { std::filesystem::remove_all(folder_); }
  StoredFilters(const StoredFilters&) = delete;
  StoredFilters& operator=(const StoredFilters&) = delete;

  /// 200 subnets and single addresses in a network that ends in the number.
  void Fill(int network) {
    filters.Clear();
    for (int i = 0; i < kFilters; ++i)
      filters.AddFilter(fmt::format("172.{}.{}.7{}", network, i, i % 2 == 0 ? "" : "/24"));
  }
  void SaveOne(int index, const std::string& text) {
    support_.SaveRegistryValue(kApplicationDescription, "Device Filters", index, text, false);
  }

 private:
  static std::filesystem::path MakeFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "sentrel-bench-XXXXXX";
    return mkdtemp(pattern.data());
  }

  std::filesystem::path folder_ = MakeFolder();
  StillClock clock_;
  SqliteRegistry registry_{folder_ / "machine/registry.db", folder_ / "user/registry.db", clock_};
  RegistrySupport support_{registry_};

 public:
  DeviceFilters filters{support_};
};

void AddressInNoFilter(benchmark::State& state) {
  const StoredFilters stored;
  const std::string address = "203.0.113.250";
  for (auto _ : state) benchmark::DoNotOptimize(stored.filters.AddressInFilters(address));
}
BENCHMARK(AddressInNoFilter);

void SyncOfTheWholeList(benchmark::State& state) {
  StoredFilters stored;
  int network = 0;
  for (auto _ : state) {
    state.PauseTiming();
    stored.Fill(network = 1 - network);
    state.ResumeTiming();
    stored.filters.Sync();
  }
}
BENCHMARK(SyncOfTheWholeList)->Unit(benchmark::kMillisecond)->UseRealTime();

void OneWriteForEachFilter(benchmark::State& state) {
  StoredFilters stored;
  int network = 0;
  for (auto _ : state) {
    network = 1 - network;
    for (int i = 1; i <= kFilters; ++i) stored.SaveOne(i, fmt::format("172.{}.{}.7", network, i));
  }
}
BENCHMARK(OneWriteForEachFilter)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Keeps the seconds that each run took for one iteration: of processor time for the filters, of
/// real time for what waits for the disk.
class Recorder : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      const bool isDiskBound = !run.run_name.time_type.empty();
      seconds[run.run_name.function_name] =
          (isDiskBound ? run.real_accumulated_time : run.cpu_accumulated_time) /
          static_cast<double>(run.iterations);
    }
  }
  std::map<std::string, double> seconds;
};

}  // namespace
}  // namespace sentrel

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  sentrel::Recorder recorder;
  benchmark::RunSpecifiedBenchmarks(&recorder);
  auto& seconds = recorder.seconds;
  fmt::print("200 filters cost a trap {:.3f} microseconds: {:.2f} of the bound of 1\n",
             seconds["AddressInNoFilter"] * 1e6, seconds["AddressInNoFilter"] * 1e6);
  fmt::print("200 filters in one change take {:.1f} ms, one by one {:.0f} ms: ratio {:.0f}\n",
             seconds["SyncOfTheWholeList"] * 1e3, seconds["OneWriteForEachFilter"] * 1e3,
             seconds["OneWriteForEachFilter"] / seconds["SyncOfTheWholeList"]);
}
