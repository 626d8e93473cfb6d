#include "document/PixelBytes.h"

#include <cstddef>
#include <cstring>

namespace morvane {
namespace {

#if defined(__x86_64__) && defined(__GNUC__)

/// Sixteen bytes: four pixels, or five pixels and a third in a file.
using ByteVector = std::uint8_t __attribute__((vector_size(16)));
constexpr int kGroup = 4;
constexpr int kGroupBytes = 3 * kGroup;
/// A group takes a whole vector, so that a row must hold that many bytes from its beginning on.
constexpr int kReach = 6;

bool HasByteShuffle() {
  static const bool kHas = __builtin_cpu_supports("ssse3") != 0;
  return kHas;
}

/// Returns how many pixels are done.
__attribute__((target("ssse3"))) int PackGroups(std::uint8_t* to, const Pixel* from, int count) {
  int done = 0;
  for (; done <= count - kReach; done += kGroup, to += kGroupBytes) {
    ByteVector bytes;
    std::memcpy(&bytes, from + done, sizeof bytes);
    // What is written beyond twelve bytes, the next pixels write over.
    bytes =
        __builtin_shufflevector(bytes, bytes, 0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 3, 7, 11, 15);
    std::memcpy(to, &bytes, sizeof bytes);
  }
  return done;
}

/// Returns how many pixels are done.
__attribute__((target("ssse3"))) int UnpackGroups(Pixel* to, const std::uint8_t* from, int count) {
  constexpr ByteVector kOpaque = {0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255};
  int done = 0;
  for (; done <= count - kReach; done += kGroup, from += kGroupBytes) {
    ByteVector bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    bytes = __builtin_shufflevector(bytes, bytes, 0, 1, 2, 0, 3, 4, 5, 0, 6, 7, 8, 0, 9, 10, 11, 0);
    bytes |= kOpaque;
    std::memcpy(to + done, &bytes, sizeof bytes);
  }
  return done;
}

#else

bool HasByteShuffle() {
  return false;
}
int PackGroups(std::uint8_t* /*to*/, const Pixel* /*from*/, int /*count*/) {
  return 0;
}
int UnpackGroups(Pixel* /*to*/, const std::uint8_t* /*from*/, int /*count*/) {
  return 0;
}

#endif

}  // namespace

void PackPixels(std::uint8_t* to, const Pixel* from, int count) {
  const int done = HasByteShuffle() ? PackGroups(to, from, count) : 0;
  PackPixelsPlainly(to + std::ptrdiff_t{3} * done, from + done, count - done);
}

void UnpackPixels(Pixel* to, const std::uint8_t* from, int count) {
  const int done = HasByteShuffle() ? UnpackGroups(to, from, count) : 0;
  UnpackPixelsPlainly(to + done, from + std::ptrdiff_t{3} * done, count - done);
}

void PackPixelsPlainly(std::uint8_t* to, const Pixel* from, int count) {
  for (int i = 0; i < count; ++i, to += 3) {
    to[0] = BlueOf(from[i]);
    to[1] = GreenOf(from[i]);
    to[2] = RedOf(from[i]);
  }
}

void UnpackPixelsPlainly(Pixel* to, const std::uint8_t* from, int count) {
  for (int i = 0; i < count; ++i, from += 3) to[i] = MakePixel(from[2], from[1], from[0]);
}

}  // namespace morvane
