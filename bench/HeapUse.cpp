#include "bench/HeapUse.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

thread_local constinit morvane::bench::HeapUse use;
thread_local constinit bool isCounting = false;

void* Allocated(void* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  if (isCounting) {
    ++use.allocations;
    use.bytes += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    use.peak = std::max(use.peak, use.bytes);
  }
  return memory;
}

void Free(void* memory) {
  if (isCounting) use.bytes -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
  std::free(memory);
}

}  // namespace

namespace morvane::bench {

HeapUse HeapUseOf(const std::function<void()>& run) {
  use = {};
  isCounting = true;
  run();
  isCounting = false;
  return use;
}

}  // namespace morvane::bench

// The array and nothrow variants call these.
void* operator new(std::size_t size) {
  return Allocated(std::malloc(std::max<std::size_t>(size, 1)));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto step = static_cast<std::size_t>(alignment);
  return Allocated(
      std::aligned_alloc(step, (std::max<std::size_t>(size, 1) + step - 1) / step * step));
}

void operator delete(void* memory) noexcept {
  Free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  Free(memory);
}

void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
  Free(memory);
}

void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  Free(memory);
}
