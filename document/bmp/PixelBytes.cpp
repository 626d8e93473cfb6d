#include "document/bmp/PixelBytes.h"

#include <cstring>

/// Also compiles a function for processors with wide registers. The version is chosen at run time.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define MORVANE_WIDE __attribute__((target_clones("avx2", "default")))
#else
#define MORVANE_WIDE
#endif

namespace morvane {
namespace {

/// Four pixels, or the bytes of four and a third in a file.
using Group = std::uint8_t __attribute__((vector_size(16)));
constexpr int kGroup = 4;
constexpr int kGroupBytes = 3 * kGroup;
/// A group in a file ends four bytes early, so two more pixels must follow it.
constexpr int kReach = kGroup + 2;

}  // namespace

MORVANE_WIDE void PackPixels(std::uint8_t* to, const Pixel* from, int count) {
  for (; count >= kReach; count -= kGroup, from += kGroup, to += kGroupBytes) {
    Group bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    // The last four bytes are overwritten by the next pixels.
    bytes =
        __builtin_shufflevector(bytes, bytes, 0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 3, 7, 11, 15);
    std::memcpy(to, &bytes, sizeof bytes);
  }
  for (; count > 0; --count, ++from, to += 3) {
    to[0] = BlueOf(*from);
    to[1] = GreenOf(*from);
    to[2] = RedOf(*from);
  }
}

MORVANE_WIDE void UnpackPixels(Pixel* to, const std::uint8_t* from, int count) {
  constexpr int kAlpha = 16;  // the first byte of the second vector
  for (; count >= kReach; count -= kGroup, from += kGroupBytes, to += kGroup) {
    Group bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    bytes = __builtin_shufflevector(bytes, Group{} + 255, 0, 1, 2, kAlpha, 3, 4, 5, kAlpha, 6, 7, 8,
                                    kAlpha, 9, 10, 11, kAlpha);
    std::memcpy(to, &bytes, sizeof bytes);
  }
  for (; count > 0; --count, from += 3) *to++ = MakePixel(from[2], from[1], from[0]);
}

}  // namespace morvane
