#include "bench/HeapWatch.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#ifdef __SANITIZE_ADDRESS__
// Not every compiler has the header that declares these.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*taken)(const volatile void*,
                                                                       std::size_t),
                                                         void (*givenBack)(const volatile void*));
extern "C" std::size_t __sanitizer_get_allocated_size(const volatile void* memory);
#else
#include <malloc.h>
#endif

namespace morvane {
namespace {

struct Counts {
  bool on = false;
  int allocations = 0;
  std::ptrdiff_t held = 0;
  std::ptrdiff_t peak = 0;
};

thread_local constinit Counts counts;

void NoteTaken(std::size_t bytes) {
  ++counts.allocations;
  counts.held += static_cast<std::ptrdiff_t>(bytes);
  counts.peak = std::max(counts.peak, counts.held);
}

void NoteGivenBack(std::size_t bytes) {
  counts.held -= static_cast<std::ptrdiff_t>(bytes);
}

}  // namespace

HeapWatch::HeapWatch() {
#ifdef __SANITIZE_ADDRESS__
  static const int kHooks = __sanitizer_install_malloc_and_free_hooks(
      [](const volatile void*, std::size_t bytes) {
        if (counts.on) NoteTaken(bytes);
      },
      [](const volatile void* memory) {
        if (counts.on && memory != nullptr) NoteGivenBack(__sanitizer_get_allocated_size(memory));
      });
  if (kHooks == 0) std::abort();
#endif
  counts = {.on = true};
}

HeapWatch::~HeapWatch() {
  counts.on = false;
}

int HeapWatch::Allocations() const {  // NOLINT(readability-convert-member-functions-to-static)
  return counts.allocations;
}

std::ptrdiff_t HeapWatch::Peak() const {  // NOLINT(readability-convert-member-functions-to-static)
  return counts.peak;
}

#ifndef __SANITIZE_ADDRESS__
namespace {

void* Take(void* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  if (counts.on) NoteTaken(malloc_usable_size(memory));
  return memory;
}

void GiveBack(void* memory) {
  if (counts.on) NoteGivenBack(malloc_usable_size(memory));
  std::free(memory);
}

}  // namespace
#endif

}  // namespace morvane

#ifndef __SANITIZE_ADDRESS__
// The array and nothrow variants call these.
void* operator new(std::size_t size) {
  return morvane::Take(std::malloc(std::max<std::size_t>(size, 1)));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto step = static_cast<std::size_t>(alignment);
  return morvane::Take(
      std::aligned_alloc(step, (std::max<std::size_t>(size, 1) + step - 1) / step * step));
}

void operator delete(void* memory) noexcept {
  morvane::GiveBack(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  morvane::GiveBack(memory);
}

void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
  morvane::GiveBack(memory);
}

void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  morvane::GiveBack(memory);
}
#endif
