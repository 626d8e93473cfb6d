#include "document/PixelBytes.h"

#include <array>
#include <bit>
#include <cstring>

namespace morvane {
namespace {

/// Four pixels are three words of the file, where the processor numbers bytes as the file does.
constexpr int kGroup = 4;
constexpr bool kFileOrder = std::endian::native == std::endian::little;
using Words = std::array<std::uint32_t, 3>;
constexpr int kGroupBytes = sizeof(Words);

void PackGroup(std::uint8_t* to, const Pixel* from) {
  const Words words = {(from[0] & 0xFFFFFFU) | from[1] << 24U,
                       (from[1] >> 8U & 0xFFFFU) | from[2] << 16U,
                       (from[2] >> 16U & 0xFFU) | from[3] << 8U};
  std::memcpy(to, words.data(), sizeof words);
}

void UnpackGroup(Pixel* to, const std::uint8_t* from) {
  constexpr Pixel kOpaque = PixelOf(0);
  Words words;
  std::memcpy(words.data(), from, sizeof words);
  to[0] = words[0] | kOpaque;
  to[1] = words[0] >> 24U | words[1] << 8U | kOpaque;
  to[2] = words[1] >> 16U | words[2] << 16U | kOpaque;
  to[3] = words[2] >> 8U | kOpaque;
}

}  // namespace

void PackPixels(std::uint8_t* to, const Pixel* from, int count) {
  int i = 0;
  for (; kFileOrder && i <= count - kGroup; i += kGroup, to += kGroupBytes) PackGroup(to, from + i);
  for (; i < count; ++i, to += 3) {
    to[0] = BlueOf(from[i]);
    to[1] = GreenOf(from[i]);
    to[2] = RedOf(from[i]);
  }
}

void UnpackPixels(Pixel* to, const std::uint8_t* from, int count) {
  int i = 0;
  for (; kFileOrder && i <= count - kGroup; i += kGroup, from += kGroupBytes) {
    UnpackGroup(to + i, from);
  }
  for (; i < count; ++i, from += 3) to[i] = MakePixel(from[2], from[1], from[0]);
}

}  // namespace morvane
