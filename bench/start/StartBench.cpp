// Starts Morvane and the bare window alternately and prints their start times as rows of the table
// of scripts/bench. The argument is the number of starts of each.

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "bench/start/WindowWatch.h"

namespace start_bench {
namespace {

constexpr int kMainWidth = 700;  // pixels; the splash is narrower
constexpr double kSplashTime = 400;

using Figures = std::vector<double>;

struct Series {
  Figures window;    ///< ms from the start to the first window
  Figures main;      ///< ms from the splash to the main window, less the splash's own time
  Figures resident;  ///< MB
};

/// A program that runs in an empty folder during the lifetime of this object.
class Program {
 public:
  explicit Program(const char* path) {
    process_.setWorkingDirectory(folder_.path());
    process_.setEnvironment({"HOME=" + folder_.path(), "XDG_RUNTIME_DIR=" + folder_.path(),
                             "DISPLAY=" + qEnvironmentVariable("DISPLAY"), "QT_QPA_PLATFORM=xcb",
                             "CUPS_SERVER=localhost:1", "LANG=C.UTF-8", "PATH=/usr/bin:/bin"});
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    started_ = Clock::now();
    process_.start(path, {});
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() {
    process_.terminate();
    process_.waitForFinished();
  }

  Clock::time_point Started() const { return started_; }

  /// Its resident memory in MB when it is idle.
  double Resident() const {
    constexpr std::chrono::seconds kUntilIdle(1);
    constexpr double kMegabyte = 1024;
    const std::string key = "VmRSS:";
    std::this_thread::sleep_for(kUntilIdle);
    std::ifstream lines("/proc/" + std::to_string(process_.processId()) + "/status");
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with(key)) return std::stod(line.substr(key.size())) / kMegabyte;
    }
    return 0;
  }

 private:
  QTemporaryDir folder_;
  QProcess process_;
  Clock::time_point started_;
};

/// Milliseconds.
double Between(Clock::time_point begin, Clock::time_point end) {
  return std::chrono::duration<double, std::milli>(end - begin).count();
}

double Median(Figures figures) {
  std::sort(figures.begin(), figures.end());
  return figures[figures.size() / 2];
}

void StartBare(WindowWatch& watch, Series& series) {
  const Program bare(BARE_PROGRAM);
  series.window.push_back(Between(bare.Started(), watch.NextWindow(kMainWidth)));
  series.resident.push_back(bare.Resident());
}

void StartMorvane(WindowWatch& watch, Series& series) {
  const Program morvane(MORVANE_PROGRAM);
  const Clock::time_point splash = watch.NextWindow(1);
  const Clock::time_point main = watch.NextWindow(kMainWidth);
  series.window.push_back(Between(morvane.Started(), splash));
  series.main.push_back(Between(splash, main) - kSplashTime);
  series.resident.push_back(morvane.Resident());
}

/// Prints a row that compares two medians.
void PrintRatio(const char* operation, const Figures& ours, const Figures& bare, const char* unit) {
  constexpr double kTarget = 1.5;
  const double ratio = Median(ours) / Median(bare);
  std::printf("| %s | %.1f %s | bare window | %.1f %s | %.2f x | at most %.2f x | %s |\n",
              operation, Median(ours), unit, Median(bare), unit, ratio, kTarget,
              ratio <= kTarget ? "yes" : "no");
}

void PrintTable(const Series& ours, const Series& bare) {
  constexpr double kTarget = 10;
  PrintRatio("Start until the splash is painted", ours.window, bare.window, "ms");
  const double rest = Median(ours.main);
  std::printf(
      "| Splash until the main window, beyond 400 ms | %.1f ms | | | | at most %.0f ms | %s |\n",
      rest, kTarget, rest <= kTarget ? "yes" : "no");
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
  const QCoreApplication application(argc, argv);
  start_bench::Run(argc > 1 ? std::atoi(argv[1]) : kStarts);
}
