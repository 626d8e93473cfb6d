#pragma once

#include <cstring>

#include "document/picture/Color.h"

/// Also compiles a function for processors with wide registers. The version is chosen at run time.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define MORVANE_WIDE __attribute__((target_clones("avx2", "default")))
#else
#define MORVANE_WIDE
#endif

namespace morvane {

/// A group of pixels processed at once. The compiler uses several registers where they are
/// narrower.
using PixelVector = Pixel __attribute__((vector_size(32)));
using HalfVector = Pixel __attribute__((vector_size(16)));

/// How many pixels a vector holds.
template <typename Vector>
inline constexpr int kPixelsOf = sizeof(Vector) / sizeof(Pixel);

/// Reads a vector from any address, aligned or not.
template <typename Vector>
inline void LoadPixels(Vector& pixels, const Pixel* from) {
  std::memcpy(&pixels, from, sizeof pixels);
}

/// Writes a vector to any address, aligned or not.
template <typename Vector>
inline void StorePixels(Pixel* to, const Vector& pixels) {
  std::memcpy(to, &pixels, sizeof pixels);
}

}  // namespace morvane
