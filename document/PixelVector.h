#pragma once

#include <cstring>

#include "document/Color.h"

namespace morvane {

/// Pixels that are worked on at once, in one register of any of today's processors.
using PixelVector = Pixel __attribute__((vector_size(16)));
inline constexpr int kVectorPixels = 4;

/// From and to any address, aligned or not.
inline PixelVector LoadPixels(const Pixel* from) {
  PixelVector pixels;
  std::memcpy(&pixels, from, sizeof pixels);
  return pixels;
}

inline void StorePixels(Pixel* to, PixelVector pixels) {
  std::memcpy(to, &pixels, sizeof pixels);
}

}  // namespace morvane
