#pragma once

#include <cstdio>
#include <cstdlib>

/// Aborts, so that the fuzzer reports the input.
inline void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "Violated: %s\n", rule);
  std::abort();
}
