#include "bench/Contest.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace morvane::bench {

Contest::Bytes Contest::Make(const std::function<void()>& run, const Result& result) const {
  if (!result) return {};
  if (work_.reset) work_.reset();
  run();
  const std::span<const std::byte> made = result();
  Bytes kept(made.begin(), made.end());
  if (work_.reset) work_.reset();
  return kept;
}

void Contest::Compare(const std::string& peer, const Bytes& theirs) const {
  if (ours_.empty()) {
    std::cerr << work_.name << ": there is no result to compare with " << peer << "'s.\n";
    std::exit(EXIT_FAILURE);
  }
  if (ours_ == theirs) return;
  const auto [at, _] = std::mismatch(ours_.begin(), ours_.end(), theirs.begin(), theirs.end());
  std::cerr << work_.name << ": the result differs from " << peer << "'s at byte "
            << at - ours_.begin() << " (" << ours_.size() << " and " << theirs.size()
            << " bytes). Nothing was measured.\n";
  std::exit(EXIT_FAILURE);
}

}  // namespace morvane::bench
