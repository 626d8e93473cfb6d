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

/// The output of a run, for the comparison.
using Result = std::function<std::span<const std::byte>()>;

/// Processor time excludes other programs. Operations that wait are measured in wall-clock time.
enum class Clock { Processor, Wall };

/// An operation that Morvane and its peers do with the same input.
struct Work {
  std::string name;
  int pieces = 1;                         ///< processed by one run
  std::function<void()> reset = nullptr;  ///< restores the input before a comparison
  Result result = nullptr;                ///< returns the output of a run
  Clock clock = Clock::Processor;
  /// Pause before each run, as between two clicks. It isn't included in the wall-clock time.
  std::chrono::milliseconds pause{0};
};

/// Registers Morvane and its peers for an operation, and adds their ratios to the table. A run is
/// called many times in a row without a reset.
class Contest {
 public:
  Contest(RatioTable& table, Work work) : table_(table), work_(std::move(work)) {}

  /// Morvane's implementation. Comes first.
  template <class Run>
  Contest& Ours(Run run) {
    ours_ = Make(run, work_.result);
    Measure(kOurs, run);
    return *this;
  }

  /// A peer that must have the same output, in the same place unless another is given. If it
  /// differs, the program ends with a message.
  template <class Run>
  Contest& Against(const std::string& peer, Target target, Run run, const Result& result = {}) {
    Compare(peer, Make(run, result ? result : work_.result));
    return Limit(peer, target, run);
  }

  /// A limit to our own time, without a peer.
  Contest& Alone(Target target) {
    table_.Add(Row{work_.name, {}, target, work_.pieces});
    return *this;
  }

  /// A peer with different output, which isn't compared.
  template <class Run>
  Contest& Limit(const std::string& peer, Target target, Run run) {
    table_.Add(Row{work_.name, peer, target, work_.pieces});
    Measure(peer, run);
    return *this;
  }

 private:
  using Bytes = std::vector<std::byte>;

  /// Runs once from the initial state. Empty if the operation has no output to compare.
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
