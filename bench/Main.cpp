// Compares Morvane's operations with copies of memory and files and with other libraries, and
// prints one table of ratios.

#include <QApplication>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/Benches.h"

namespace {

void NotePeers(morvane::bench::RatioTable& table) {
  std::string peers = std::string("Installed peers: Qt ") + qVersion();
#ifdef MORVANE_BENCH_PIXMAN
  peers += ", pixman " MORVANE_BENCH_PIXMAN;
#endif
#ifdef MORVANE_BENCH_SDL
  peers += ", SDL " MORVANE_BENCH_SDL;
#endif
#ifdef MORVANE_BENCH_CAIRO
  peers += ", cairo " MORVANE_BENCH_CAIRO;
#endif
  table.Note(peers + ".");
}

void NoteMethod(morvane::bench::RatioTable& table) {
  table.Note(
      "Times are medians for one piece, measured in random order. Before that, the output of each "
      "peer is compared with ours and must be the same, except where memcpy is a limit for an "
      "operation that does more than copy.");
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  // The order is random, so that a busy moment of the machine affects all alike. Arguments of the
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
  morvane::bench::AddScaling(table);
  morvane::bench::AddTurns(table);
  morvane::bench::AddSnapshots(table);
  morvane::bench::AddSaving(table);
  morvane::bench::AddPresses(table);
  morvane::bench::AddWindow(table);
  morvane::bench::AddFolders(table);
  morvane::bench::AddMemory(table);
  NoteMethod(table);
  NotePeers(table);
  benchmark::RunSpecifiedBenchmarks(&table);
  // Windows and files of the benchmarks must be destroyed before the application.
  benchmark::ClearRegisteredBenchmarks();
  return EXIT_SUCCESS;
}
