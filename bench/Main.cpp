// Measures Morvane's pixel work beside the plain copying of memory and beside other libraries, and
// prints one table of ratios.

#include <QGuiApplication>
#include <array>
#include <cstdlib>
#include <vector>

#include "bench/Benches.h"

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  // Sides take turns in random order, so that a busy moment of the machine hits all alike.
  // Arguments that follow win over these.
  std::array<char, 48> interleaving{"--benchmark_enable_random_interleaving=true"};
  std::array<char, 32> repetitions{"--benchmark_repetitions=9"};
  std::array<char, 32> minTime{"--benchmark_min_time=0.05"};
  std::vector<char*> arguments{argv[0], interleaving.data(), repetitions.data(), minTime.data()};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;

  morvane::bench::RatioTable table;
  morvane::bench::AddCopies(table);
  morvane::bench::AddSeeThroughCopies(table);
  morvane::bench::AddScaling(table);
  morvane::bench::AddTurns(table);
  benchmark::RunSpecifiedBenchmarks(&table);
  return EXIT_SUCCESS;
}
