// Compares Morvane's operations with copies of memory and files and with other libraries, and
// prints one table of ratios.

#include <QApplication>
#include <cstdlib>

#include "bench/Benches.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;

  morvane::bench::RatioTable table;
  morvane::bench::AddCopies(table);
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
