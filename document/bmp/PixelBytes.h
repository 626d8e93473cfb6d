#pragma once

#include <cstdint>

#include "document/picture/Color.h"

namespace morvane {

/// Packs pixels into three bytes each: blue, green, red.
void PackPixels(std::uint8_t* to, const Pixel* from, int count);

/// Reads pixels of three bytes each: blue, green, red.
void UnpackPixels(Pixel* to, const std::uint8_t* from, int count);

}  // namespace morvane
