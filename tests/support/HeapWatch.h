#pragma once

#include <cstddef>

namespace morvane {

/// Counts what this thread takes from the heap while it lives. One at a time.
///
/// The program that uses it has its operators new and delete replaced; under the address sanitizer,
/// which needs its own, that is asked instead.
class HeapWatch {
 public:
  HeapWatch();
  HeapWatch(const HeapWatch&) = delete;
  HeapWatch& operator=(const HeapWatch&) = delete;
  ~HeapWatch();

  /// How often memory was taken.
  int Allocations() const;
  /// The most bytes that were held at once beyond those held at the start.
  std::ptrdiff_t Peak() const;
};

}  // namespace morvane
