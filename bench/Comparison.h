#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <utility>

#include "bench/RatioTable.h"
#include "document/io/ByteSources.h"

namespace morvane::bench {

/// Ends the program with a message unless the condition holds.
void Require(bool condition, const char* message);

/// Returns the output of the last run.
using Output = std::function<Bytes()>;

/// An operation that Morvane and its peers do with the same input.
struct Operation {
  std::string name;
  int pieces = 1;                         ///< processed by one run
  Output output = nullptr;                ///< compared with that of the peers
  std::function<void()> reset = nullptr;  ///< restores the input before a comparison
  bool isWallClock = false;               ///< for operations that wait; else processor time
  std::chrono::milliseconds pause{0};     ///< before each run, as between two clicks; not measured
};

/// Registers Morvane and its peers for an operation, and adds their ratios to the table. A run is
/// called many times in a row without a reset.
class Comparison {
 public:
  /// `run` is Morvane's implementation.
  template <class Run>
  Comparison(RatioTable& table, const Operation& operation, Run run)
      : table_(table), operation_(operation), ours_(Produce(run, operation.output)) {
    Measure(kOurs, run);
  }

  /// A peer that must have the same output, in the same place unless another is given. If it
  /// differs, the program ends with a message.
  template <class Run>
  Comparison& Peer(const std::string& peer, Target target, Run run, const Output& output = {}) {
    Compare(peer, Produce(run, output ? output : operation_.output));
    return Baseline(peer, target, run);
  }

  /// A peer with different output, which isn't compared.
  template <class Run>
  Comparison& Baseline(const std::string& peer, Target target, Run run) {
    table_.Add(Row{operation_.name, peer, target, operation_.pieces});
    Measure(peer, run);
    return *this;
  }

  /// A limit to our own time, without a peer.
  Comparison& Absolute(Target target) {
    table_.Add(Row{operation_.name, {}, target, operation_.pieces});
    return *this;
  }

 private:
  /// Runs once from the initial state. Empty if the operation has no output to compare.
  Bytes Produce(const std::function<void()>& run, const Output& output) const;
  void Compare(const std::string& peer, const Bytes& theirs) const;

  template <class Run>
  void Measure(const std::string& who, Run run) {
    constexpr int kPausedRuns = 6;
    const bool pauses = operation_.pause.count() > 0;
    auto* measured = benchmark::RegisterBenchmark(
        BenchmarkName(operation_.name, who).c_str(),
        [run, pauses, pause = operation_.pause](benchmark::State& state) mutable {
          for (auto _ : state) {
            if (pauses) {
              state.PauseTiming();
              std::this_thread::sleep_for(pause);
              state.ResumeTiming();
            }
            run();
            benchmark::ClobberMemory();
          }
        });
    if (pauses) measured->Iterations(kPausedRuns);
    if (pauses || operation_.isWallClock) measured->UseRealTime();
  }

  RatioTable& table_;
  Operation operation_;
  Bytes ours_;
};

}  // namespace morvane::bench
