// Starts Morvane and the bare window alternately and prints their start times as rows of the table
// of scripts/bench.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "bench/start/Program.h"
#include "bench/start/WindowWatch.h"

namespace start_bench {
namespace {

constexpr int kMainWidth = 700;  // pixels; the splash is narrower
constexpr double kSplashTime = 400;
constexpr std::chrono::milliseconds kUntilIdle(1000);

using Figures = std::vector<double>;

struct Series {
  Figures window;    ///< ms from the start to the first window
  Figures main;      ///< ms from the splash to the main window, less the splash's own time
  Figures resident;  ///< MB
};

double Between(Clock::time_point one, Clock::time_point other) {
  return std::chrono::duration<double, std::milli>(other - one).count();
}

double Median(Figures figures) {
  std::sort(figures.begin(), figures.end());
  return figures[figures.size() / 2];
}

void MeasureMemory(const Program& program, Series& series) {
  constexpr double kMegabyte = 1024;
  std::this_thread::sleep_for(kUntilIdle);
  series.resident.push_back(static_cast<double>(program.Resident()) / kMegabyte);
}

void StartBare(WindowWatch& watch, Series& series) {
  const Program bare(BARE_PROGRAM);
  const Appearance window = watch.NextWindow(kMainWidth);
  series.window.push_back(Between(bare.Started(), window.painted));
  MeasureMemory(bare, series);
}

void StartMorvane(WindowWatch& watch, Series& series) {
  const Program morvane(MORVANE_PROGRAM);
  const Appearance splash = watch.NextWindow(1);
  const Appearance main = watch.NextWindow(kMainWidth);
  series.window.push_back(Between(morvane.Started(), splash.painted));
  series.main.push_back(Between(splash.painted, main.painted) - kSplashTime);
  MeasureMemory(morvane, series);
}

/// A row of the table of scripts/bench.
void PrintRatio(const char* work, const Figures& ours, const Figures& bare, const char* unit) {
  constexpr double kTarget = 1.5;
  const double ratio = Median(ours) / Median(bare);
  std::printf("| %s | %.1f %s | bare window | %.1f %s | %.2f x | at most %.2f x | %s |\n", work,
              Median(ours), unit, Median(bare), unit, ratio, kTarget,
              ratio <= kTarget ? "yes" : "no");
}

void PrintTable(const Series& ours, const Series& bare) {
  constexpr double kFewMilliseconds = 10;
  PrintRatio("Start until the splash is painted", ours.window, bare.window, "ms");
  const double rest = Median(ours.main);
  std::printf(
      "| Splash until the main window, beyond 400 ms | %.1f ms | - | - | - | "
      "at most %.0f ms | %s |\n",
      rest, kFewMilliseconds, rest <= kFewMilliseconds ? "yes" : "no");
  PrintRatio("Resident memory when idle", ours.resident, bare.resident, "MB");
}

void Run(int starts) {
  WindowWatch watch;
  Series ours;
  Series bare;
  // Warm-up: the first start reads the libraries from disk.
  Series unused;
  StartBare(watch, unused);
  StartMorvane(watch, unused);
  for (int i = 0; i < starts; ++i) {
    StartBare(watch, bare);
    StartMorvane(watch, ours);
  }
  PrintTable(ours, bare);
}

}  // namespace
}  // namespace start_bench

int main(int argc, char** argv) {
  constexpr int kStarts = 11;
  start_bench::Run(argc > 1 ? std::atoi(argv[1]) : kStarts);
}
