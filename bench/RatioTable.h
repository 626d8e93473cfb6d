#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace morvane::bench {

/// What a time or a ratio of times ought to be.
struct Target {
  enum class Kind { AtMost, Faster, Within, Rate };
  Kind kind;
  double limit;
};

/// Our time is at most that many times the other's.
constexpr Target AtMost(double times) {
  return {Target::Kind::AtMost, times};
}

/// The other's time is at least that many times ours.
constexpr Target Faster(double times) {
  return {Target::Kind::Faster, times};
}

/// Our time alone, for one piece, is at most that long.
constexpr Target Within(double nanoseconds) {
  return {Target::Kind::Within, nanoseconds};
}

/// We alone work through at least so many pieces a second.
constexpr Target AtLeast(double aSecond) {
  return {Target::Kind::Rate, aSecond};
}

/// One line of the table: our time for a work beside a peer's time for the same.
struct Row {
  std::string work;
  std::string peer;  ///< empty where the target is about our time alone
  Target target;
  int pieces;  ///< that a run works through; the time shown is that of one
};

/// One line about something that was counted, not timed.
struct Count {
  std::string work;
  std::string counted;
  std::string target;
  bool met;
};

/// The name a side is measured under; a work's sides share its name, so that one filter takes all.
std::string SideName(const std::string& work, const std::string& who);

/// Who Morvane is called among the sides.
inline constexpr const char* kOurs = "Morvane";

/// Gathers the medians of all sides and prints them as one Markdown table of ratios at the end.
class RatioTable : public benchmark::BenchmarkReporter {
 public:
  void Add(Row row);
  /// Comes behind the lines with times.
  void Add(Count count);
  /// Prints a sentence below the table.
  void Note(std::string sentence);

  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  void PrintRow(const Row& row);

  std::vector<Row> rows_;
  std::vector<Count> counts_;
  std::vector<std::string> notes_;
  std::map<std::string, double> medians_;  ///< nanoseconds by the name of the side
};

}  // namespace morvane::bench
