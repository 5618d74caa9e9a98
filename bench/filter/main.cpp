// How long a key holds up the window while a filter is typed over a full table of six-binding
// traps: the slowest key of each query, against a bound of one frame, and how much of it a slice
// may take.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "console/table_filter.h"
#include "console/trap_row.h"
#include "console/trap_rows.h"
#include "mib/library.h"

namespace sentrel::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr double kBoundMilliseconds = 16;

class Row : public TrapRow {
 public:
  explicit Row(const ArrivedTrap& trap) : TrapRow(trap) {}
  RowContent Make() const override { return {}; }
};

Trap SixBindings(int number, std::size_t longest) {
  const std::string index = std::to_string(number);
  const bool isDown = number % 2 == 0;
  return {"10.1." + std::to_string(number / 250) + "." + std::to_string(number % 250),
          "public",
          {"1.3.6.1.2.1.1.3.0", "1.3.6.1.6.3.1.1.4.1.0", "1.3.6.1.2.1.2.2.1.1." + index,
           "1.3.6.1.2.1.2.2.1.2." + index, "1.3.6.1.2.1.2.2.1.8." + index, "1.3.6.1.6.3.1.1.4.3.0"},
          {67, 6, 2, 4, 2, 6},
          {"421337", isDown ? "1.3.6.1.6.3.1.1.5.3" : "1.3.6.1.6.3.1.1.5.4", index,
           "GigabitEthernet0/" + index + std::string(longest, 'x'), isDown ? "2" : "1",
           "1.3.6.1.4.1.9.1.1745"}};
}

/// Types the query and prints the slowest key.
void Measure(const char* query, std::size_t longest, mib::Library& mibs) {
  Table table;
  table.SetCols(5);
  for (int i = 0; i < kMostTraps; ++i) {
    table.AddItem(std::make_shared<Row>(ArrivedTrap(SixBindings(i, longest))), 1);
  }
  TableFilter filter(table, mibs);
  Milliseconds slowestKey{}, slowestSlice{};
  std::string typed;
  for (const char* key = query; *key != '\0'; ++key) {
    const auto start = Clock::now();
    typed += *key;
    filter.SetText(typed, {});
    bool isMore = true;
    while (isMore) {
      const auto slice = Clock::now();
      isMore = filter.Continue(std::chrono::milliseconds(8));
      slowestSlice = std::max<Milliseconds>(slowestSlice, Clock::now() - slice);
    }
    slowestKey = std::max<Milliseconds>(slowestKey, Clock::now() - start);
  }
  std::printf("%-52s %6zu octets  key %6.1f ms (%4.2f x bound)  slice %5.1f ms  %3d rows left\n",
              query, longest, slowestKey.count(), slowestKey.count() / kBoundMilliseconds,
              slowestSlice.count(), table.Rows() - 1);
}

void Main() {
  const char* const image = std::getenv("SENTREL_IMAGE");
  const auto cache = std::filesystem::temp_directory_path() / "sentrel-bench-filter.image";
  mib::Library mibs(
      {.builtInImage = image == nullptr ? "" : image, .folders = {}, .cacheFile = cache}, [] {});
  std::printf(
      "%d traps of six bindings; bound: %.0f ms a key; larger traps are judged in slices of 8 "
      "ms\n",
      kMostTraps, kBoundMilliseconds);
  for (const char* query :
       {"from:10.1.2.0/24", "trap:linkDown", "Ethernet0/77",
        "trap:link* ifOperStatus=down -community:private \"0/1\" or ifIndex>500"}) {
    Measure(query, 0, mibs);
  }
  Measure("Ethernet0/77", 60'000, mibs);
  std::filesystem::remove(cache);
}

}  // namespace
}  // namespace sentrel::bench

int main() {
  sentrel::bench::Main();
}
