#include "bench/RatioTable.h"

#include <array>
#include <iomanip>
#include <sstream>

namespace morvane::bench {
namespace {

std::string Rounded(double value, int decimals) {
  std::ostringstream out;
  out << std::fixed << std::setprecision(decimals) << value;
  return out.str();
}

std::string TimeText(double nanoseconds) {
  if (nanoseconds < 1000) return Rounded(nanoseconds, 1) + " ns";
  if (nanoseconds < 1e6) return Rounded(nanoseconds / 1e3, 1) + " us";
  return Rounded(nanoseconds / 1e6, 1) + " ms";
}

std::string YesNo(bool isMet) {
  return isMet ? "yes" : "no";
}

/// The cells for the ratio, the target and whether it is met. `peers` is unused if the target is
/// for our time alone.
std::array<std::string, 3> Verdict(const Target& target, double ours, double peers) {
  const double limit = target.limit;
  switch (target.kind) {
    case Target::Kind::AtMost:
      return {Rounded(ours / peers, 2) + " x", "at most " + Rounded(limit, 2) + " x",
              YesNo(ours / peers <= limit)};
    case Target::Kind::Faster:
      return {Rounded(peers / ours, 1) + " x faster", "at least " + Rounded(limit, 1) + " x faster",
              YesNo(peers / ours >= limit)};
    case Target::Kind::Within:
      return {"", "at most " + TimeText(limit), YesNo(ours <= limit)};
    case Target::Kind::PerSecond:
      return {Rounded(1e9 / ours, 0) + " a second", "at least " + Rounded(limit, 0) + " a second",
              YesNo(1e9 / ours >= limit)};
  }
  return {};
}

}  // namespace

std::string BenchmarkName(const std::string& operation, const std::string& who) {
  return operation + "/" + who;
}

void RatioTable::AddCount(const std::string& operation, const std::string& count,
                          const std::string& target, bool isMet) {
  counts_.push_back({operation, count, "", "", "", target, YesNo(isMet)});
}

bool RatioTable::ReportContext(const Context& context) {
  PrintBasicContext(&GetErrorStream(), context);
  return true;
}

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    // A single run has no median.
    if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
    const bool isWallClock = !run.run_name.time_type.empty();
    medians_[run.run_name.function_name] =
        isWallClock ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
  }
}

void RatioTable::Finalize() {
  Print({"Operation", "Morvane", "Compared with", "Its time", "Ratio", "Target", "Met"});
  GetOutputStream() << "|---|---:|---|---:|---:|---:|---|\n";
  for (const Row& row : rows_) Print(row);
  for (const Cells& count : counts_) Print(count);
  for (const std::string& note : notes_) GetOutputStream() << "\n" << note << "\n";
  GetOutputStream().flush();
}

void RatioTable::Print(const Row& row) {
  const auto ours = medians_.find(BenchmarkName(row.operation, kOurs));
  const auto peers = medians_.find(BenchmarkName(row.operation, row.peer));
  const bool isAlone = row.peer.empty();
  if (ours == medians_.end() || (!isAlone && peers == medians_.end())) return;
  const double ourTime = ours->second / row.pieces;
  const double peersTime = isAlone ? 0 : peers->second / row.pieces;
  const auto [ratio, target, isMet] = Verdict(row.target, ourTime, peersTime);
  Print({row.operation, TimeText(ourTime), row.peer, isAlone ? "" : TimeText(peersTime), ratio,
         target, isMet});
}

void RatioTable::Print(const Cells& cells) {
  for (const std::string& cell : cells) {
    GetOutputStream() << (cell.empty() ? "| " : "| " + cell + ' ');
  }
  GetOutputStream() << "|\n";
}

}  // namespace morvane::bench
