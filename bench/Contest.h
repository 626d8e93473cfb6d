#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/RatioTable.h"

namespace morvane::bench {

/// What a run has made, to be compared.
using Result = std::function<std::span<const std::byte>()>;

/// Processor time leaves out what other programs take; a work that waits needs the clock's.
enum class Clock { Processor, Wall };

/// A work that Morvane and others do, each from the same start.
struct Work {
  std::string name;
  int pieces = 1;                         ///< that one run works through
  std::function<void()> reset = nullptr;  ///< restores the start before a comparison
  Result result = nullptr;                ///< where the result of a run lies
  Clock clock = Clock::Processor;
  /// Rest before each run, as between two presses of a hand; no part of the time, which is the
  /// clock's.
  std::chrono::milliseconds pause{0};
};

/// Adds a work's sides to the measurement and its ratios to the table. Every run is called many
/// times in a row without a reset between.
class Contest {
 public:
  Contest(RatioTable& table, Work work) : table_(table), work_(std::move(work)) {}

  /// Our side; comes first.
  template <class Run>
  Contest& Ours(Run run) {
    ours_ = Make(run, work_.result);
    Measure(kOurs, run);
    return *this;
  }

  /// A peer that must make the same, in the same place unless another is given. A difference ends
  /// the program with a message.
  template <class Run>
  Contest& Against(const std::string& peer, Target target, Run run, const Result& result = {}) {
    Compare(peer, Make(run, result ? result : work_.result));
    return Limit(peer, target, run);
  }

  /// A limit to our own time, beside nobody's.
  Contest& Alone(Target target) {
    table_.Add(Row{work_.name, {}, target, work_.pieces});
    return *this;
  }

  /// Something to be measured beside that makes another result.
  template <class Run>
  Contest& Limit(const std::string& peer, Target target, Run run) {
    table_.Add(Row{work_.name, peer, target, work_.pieces});
    Measure(peer, run);
    return *this;
  }

 private:
  using Bytes = std::vector<std::byte>;

  /// Runs once from the start; empty where the work names no result.
  Bytes Make(const std::function<void()>& run, const Result& result) const;
  void Compare(const std::string& peer, const Bytes& theirs) const;

  template <class Run>
  void Measure(const std::string& who, Run run) {
    if (work_.pause.count() > 0) {
      MeasureWithPauses(who, run);
      return;
    }
    auto* side = benchmark::RegisterBenchmark(SideName(work_.name, who).c_str(),
                                              [run](benchmark::State& state) mutable {
                                                for (auto _ : state) {
                                                  run();
                                                  benchmark::ClobberMemory();
                                                }
                                              });
    if (work_.clock == Clock::Wall) side->UseRealTime();
  }

  template <class Run>
  void MeasureWithPauses(const std::string& who, Run run) {
    constexpr int kRuns = 6;
    const auto measured = [run, pause = work_.pause](benchmark::State& state) mutable {
      for (auto _ : state) {
        std::this_thread::sleep_for(pause);
        const auto start = std::chrono::steady_clock::now();
        run();
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(time.count());
      }
    };
    benchmark::RegisterBenchmark(SideName(work_.name, who).c_str(), measured)
        ->Iterations(kRuns)
        ->UseManualTime();
  }

  RatioTable& table_;
  Work work_;
  Bytes ours_;
};

}  // namespace morvane::bench
