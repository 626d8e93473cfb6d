#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace morvane::bench {

/// The target for a time or a ratio of times.
struct Target {
  enum class Kind { AtMost, Faster, Within, PerSecond };
  Kind kind;
  double limit;
};

/// Our time is at most this multiple of the peer's.
constexpr Target AtMost(double times) {
  return {Target::Kind::AtMost, times};
}

/// The peer's time is at least this multiple of ours.
constexpr Target Faster(double times) {
  return {Target::Kind::Faster, times};
}

/// Our time for one piece is at most this.
constexpr Target Within(double nanoseconds) {
  return {Target::Kind::Within, nanoseconds};
}

/// We process at least this many pieces per second.
constexpr Target PerSecond(double pieces) {
  return {Target::Kind::PerSecond, pieces};
}

/// One row of the table: our time and a peer's time for an operation.
struct Row {
  std::string operation;
  std::string peer;  ///< empty if the target is for our time alone
  Target target;
  int pieces;  ///< processed by a run; the table shows the time of one
};

/// The name of a benchmark. It begins with the operation, so that a filter selects all peers.
std::string BenchmarkName(const std::string& operation, const std::string& who);

/// Morvane's name among the peers.
inline constexpr const char* kOurs = "Morvane";

/// Collects all medians and prints a Markdown table of ratios at the end.
class RatioTable : public benchmark::BenchmarkReporter {
 public:
  void Add(const Row& row) { rows_.push_back(row); }
  /// Adds a row with a count instead of a time, after those with times.
  void AddCount(const std::string& operation, const std::string& count, const std::string& target,
                bool isMet);
  /// Adds a sentence below the table.
  void Note(const std::string& sentence) { notes_.push_back(sentence); }

  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  using Cells = std::vector<std::string>;

  void Print(const Row& row);
  void Print(const Cells& cells);

  std::vector<Row> rows_;
  std::vector<Cells> counts_;
  std::vector<std::string> notes_;
  std::map<std::string, double> medians_;  ///< in nanoseconds, by the name of the benchmark
};

}  // namespace morvane::bench
