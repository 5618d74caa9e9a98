// bench_program BENCHMARK: figures of the whole program, window included. Run by bench/run on a
// virtual display.

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "benchmarks.h"
#include "watched_application.h"

int main(int argc, char** argv) {
  using namespace sentrel::bench;
  const std::map<std::string, int (*)()> benchmarks = {
      {"cost", RunCost},          {"rate", RunRate},
      {"burst", RunBurst},        {"response", RunResponse},
      {"painting", RunPainting},  {"views", RunViews},
      {"details", RunDetails},    {"growth", RunGrowth},
      {"start", RunStart},        {"start-program", StartProgram},
      {"bare-cost", RunBareCost},
  };
  const auto found = benchmarks.find(argc == 2 ? argv[1] : "");
  if (found == benchmarks.end()) {
    std::fprintf(
        stderr,
        "usage: bench_program cost|rate|burst|response|painting|details|views|growth|start\n");
    return EXIT_FAILURE;
  }
  WatchedApplication application(argc, argv);
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  return found->second();
}
