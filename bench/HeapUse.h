#pragma once

#include <cstddef>
#include <functional>

namespace morvane::bench {

/// What a run allocates on the heap in this thread.
struct HeapUse {
  int allocations = 0;
  std::ptrdiff_t bytes = 0;  ///< allocated and not freed
  std::ptrdiff_t peak = 0;   ///< of the bytes
};

/// Calls `run` and counts. Calls must not be nested.
HeapUse HeapUseOf(const std::function<void()>& run);

}  // namespace morvane::bench
