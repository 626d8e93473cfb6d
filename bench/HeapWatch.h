#pragma once

#include <cstddef>

namespace morvane {

/// Counts the heap allocations of this thread during its lifetime. Only one may exist.
///
/// It replaces the operators new and delete of the program. Under the address sanitizer, which has
/// its own, it uses the sanitizer's hooks.
class HeapWatch {
 public:
  HeapWatch();
  HeapWatch(const HeapWatch&) = delete;
  HeapWatch& operator=(const HeapWatch&) = delete;
  ~HeapWatch();

  /// The number of allocations.
  int Allocations() const;
  /// The peak of allocated bytes, compared with the start.
  std::ptrdiff_t Peak() const;
};

}  // namespace morvane
