// Compares Morvane's operations with copies of memory and files and with other libraries, and
// prints one table of ratios.

#include <QApplication>
#include <array>
#include <cstdlib>
#include <vector>

#include "bench/Benches.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  // The order is random, so that other load on the machine affects all alike. Arguments of the
  // command line override these.
  std::array<char, 48> interleaving{"--benchmark_enable_random_interleaving=true"};
  std::array<char, 32> repetitions{"--benchmark_repetitions=11"};
  std::array<char, 32> minTime{"--benchmark_min_time=0.05"};
  std::vector<char*> arguments{argv[0], interleaving.data(), repetitions.data(), minTime.data()};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;

  morvane::bench::RatioTable table;
  morvane::bench::AddCopies(table);
  morvane::bench::AddTransparentCopies(table);
  morvane::bench::AddTransforms(table);
  morvane::bench::AddFiles(table);
  morvane::bench::AddPresses(table);
  morvane::bench::AddWindow(table);
  morvane::bench::AddFolders(table);
  morvane::bench::AddMemory(table);
  table.Note(
      "Times are medians for one piece, measured in random order. Before that, the output of each "
      "peer is compared with ours and must be the same, except where memcpy is a limit for an "
      "operation that does more than copy.");
  table.Note(std::string("Peers: Qt ") + qVersion() + ", " PEERS ".");
  benchmark::RunSpecifiedBenchmarks(&table);
  // Windows and files of the benchmarks must be destroyed before the application.
  benchmark::ClearRegisteredBenchmarks();
  return EXIT_SUCCESS;
}
