#pragma once

#include <cstdint>

namespace morvane {

/// A colour in the settings and as a parameter: 0xBBGGRR.
using Color = std::uint32_t;

/// A pixel in memory and on the screen: 0xFFRRGGBB.
using Pixel = std::uint32_t;

inline constexpr Color kWhite = 0xFFFFFF;

constexpr Pixel MakePixel(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return 0xFF000000U | (red << 16U) | (green << 8U) | blue;
}

constexpr std::uint8_t RedOf(Pixel pixel) {
  return static_cast<std::uint8_t>(pixel >> 16U);
}
constexpr std::uint8_t GreenOf(Pixel pixel) {
  return static_cast<std::uint8_t>(pixel >> 8U);
}
constexpr std::uint8_t BlueOf(Pixel pixel) {
  return static_cast<std::uint8_t>(pixel);
}

constexpr Pixel PixelOf(Color color) {
  return MakePixel(color & 0xFFU, (color >> 8U) & 0xFFU, (color >> 16U) & 0xFFU);
}

constexpr Color ColorOf(Pixel pixel) {
  return RedOf(pixel) | (static_cast<Color>(GreenOf(pixel)) << 8U) |
         (static_cast<Color>(BlueOf(pixel)) << 16U);
}

}  // namespace morvane
