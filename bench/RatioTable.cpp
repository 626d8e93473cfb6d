#include "bench/RatioTable.h"

#include <iomanip>
#include <sstream>
#include <utility>

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

std::string YesNo(bool met) {
  return met ? "yes" : "no";
}

/// The cells for the ratio, the target and whether it is met.
std::string Verdict(const Target& target, double ours, double peers) {
  const bool faster = target.kind == Target::Kind::Faster;
  const double ratio = faster ? peers / ours : ours / peers;
  const bool met = faster ? ratio >= target.limit : ratio <= target.limit;
  const int decimals = faster ? 1 : 2;
  const std::string unit = faster ? " x faster" : " x";
  return Rounded(ratio, decimals) + unit + " | " + (faster ? "at least " : "at most ") +
         Rounded(target.limit, decimals) + unit + " | " + YesNo(met);
}

/// The same for a limit to our own time.
std::string VerdictAlone(const Target& target, double ours) {
  if (target.kind == Target::Kind::Within) {
    return "| at most " + TimeText(target.limit) + " | " + YesNo(ours <= target.limit);
  }
  const double rate = 1e9 / ours;
  return Rounded(rate, 0) + " a second | at least " + Rounded(target.limit, 0) + " a second | " +
         YesNo(rate >= target.limit);
}

}  // namespace

std::string SideName(const std::string& work, const std::string& who) {
  return work + "/" + who;
}

void RatioTable::Add(Row row) {
  rows_.push_back(std::move(row));
}

void RatioTable::Add(Count count) {
  counts_.push_back(std::move(count));
}

void RatioTable::Note(std::string sentence) {
  notes_.push_back(std::move(sentence));
}

bool RatioTable::ReportContext(const Context& context) {
  PrintBasicContext(&GetErrorStream(), context);
  return true;
}

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    // A single run has no median.
    if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
    const bool wall = !run.run_name.time_type.empty();
    medians_[run.run_name.function_name] =
        wall ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
  }
}

void RatioTable::Finalize() {
  std::ostream& out = GetOutputStream();
  out << "| Operation | Morvane | Compared with | Its time | Ratio | Target | Met |\n"
      << "|---|---:|---|---:|---:|---:|---|\n";
  for (const Row& row : rows_) PrintRow(row);
  for (const Count& count : counts_) {
    out << "| " << count.work << " | " << count.counted << " | | | | " << count.target << " | "
        << YesNo(count.met) << " |\n";
  }
  for (const std::string& note : notes_) out << "\n" << note << "\n";
  out.flush();
}

void RatioTable::PrintRow(const Row& row) {
  const auto ours = medians_.find(SideName(row.work, kOurs));
  if (ours == medians_.end()) return;
  const double time = ours->second / row.pieces;
  std::ostream& out = GetOutputStream();
  if (row.peer.empty()) {
    out << "| " << row.work << " | " << TimeText(time) << " | | | "
        << VerdictAlone(row.target, time) << " |\n";
    return;
  }
  const auto peers = medians_.find(SideName(row.work, row.peer));
  if (peers == medians_.end()) return;
  out << "| " << row.work << " | " << TimeText(time) << " | " << row.peer << " | "
      << TimeText(peers->second / row.pieces) << " | "
      << Verdict(row.target, ours->second, peers->second) << " |\n";
}

}  // namespace morvane::bench
