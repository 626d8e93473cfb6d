#pragma once

#include <cstdio>
#include <cstdlib>

namespace morvane {

/// Ends the run as a fault that the fuzzer keeps.
inline void Require(bool holds, const char* law) {
  if (holds) return;
  std::fprintf(stderr, "Doesn't hold: %s\n", law);
  std::abort();
}

}  // namespace morvane
