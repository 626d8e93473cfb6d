#include "bench/Comparison.h"

#include <cstdlib>
#include <iostream>

namespace morvane::bench {

void Require(bool condition, const char* message) {
  if (condition) return;
  std::cerr << message << ". Nothing was measured.\n";
  std::exit(EXIT_FAILURE);
}

Bytes Comparison::Produce(const std::function<void()>& run, const Output& output) const {
  if (!output) return {};
  if (operation_.reset) operation_.reset();
  run();
  Bytes produced = output();
  if (operation_.reset) operation_.reset();
  return produced;
}

void Comparison::Compare(const std::string& peer, const Bytes& theirs) const {
  const std::string message = operation_.name + ": the output differs from that of " + peer;
  Require(!ours_.empty() && ours_ == theirs, message.c_str());
}

}  // namespace morvane::bench
