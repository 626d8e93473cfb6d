#include "document/bmp/PixelBytes.h"

#include <cstddef>

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#endif

namespace morvane {
namespace {

#if defined(__x86_64__) && defined(__GNUC__)

constexpr int kGroup = 8;
/// In a file each half of a group takes twelve bytes.
constexpr std::ptrdiff_t kHalfBytes = 12;
/// The second half reads four bytes beyond its own, so two more pixels must follow it.
constexpr int kReach = kGroup + 2;

bool HasWideShuffle() {
  static const bool kHas = __builtin_cpu_supports("avx2") != 0;
  return kHas;
}

__attribute__((target("avx2"))) __m256i InBothHalves(__m128i bytes) {
  return _mm256_broadcastsi128_si256(bytes);
}

/// Returns the number of pixels processed.
__attribute__((target("avx2"))) int PackGroups(std::uint8_t* to, const Pixel* from, int count) {
  const __m256i order =
      InBothHalves(_mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1));
  int done = 0;
  for (; done <= count - kReach; done += kGroup, to += 2 * kHalfBytes) {
    const __m256i pixels = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from + done));
    const __m256i bytes = _mm256_shuffle_epi8(pixels, order);
    // The bytes written beyond the twelfth are overwritten by the next pixels.
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm256_castsi256_si128(bytes));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + kHalfBytes),
                     _mm256_extracti128_si256(bytes, 1));
  }
  return done;
}

/// Returns the number of pixels processed.
__attribute__((target("avx2"))) int UnpackGroups(Pixel* to, const std::uint8_t* from, int count) {
  const __m256i order =
      InBothHalves(_mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1));
  const __m256i opaque = _mm256_set1_epi32(static_cast<int>(PixelOf(0)));
  int done = 0;
  for (; done <= count - kReach; done += kGroup, from += 2 * kHalfBytes) {
    const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const __m128i second = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + kHalfBytes));
    const __m256i bytes = _mm256_inserti128_si256(_mm256_castsi128_si256(first), second, 1);
    const __m256i pixels = _mm256_or_si256(_mm256_shuffle_epi8(bytes, order), opaque);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to + done), pixels);
  }
  return done;
}

#else

bool HasWideShuffle() {
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
  const int done = HasWideShuffle() ? PackGroups(to, from, count) : 0;
  PackPixelsScalar(to + std::ptrdiff_t{3} * done, from + done, count - done);
}

void UnpackPixels(Pixel* to, const std::uint8_t* from, int count) {
  const int done = HasWideShuffle() ? UnpackGroups(to, from, count) : 0;
  UnpackPixelsScalar(to + done, from + std::ptrdiff_t{3} * done, count - done);
}

void PackPixelsScalar(std::uint8_t* to, const Pixel* from, int count) {
  for (int i = 0; i < count; ++i, to += 3) {
    to[0] = BlueOf(from[i]);
    to[1] = GreenOf(from[i]);
    to[2] = RedOf(from[i]);
  }
}

void UnpackPixelsScalar(Pixel* to, const std::uint8_t* from, int count) {
  for (int i = 0; i < count; ++i, from += 3) to[i] = MakePixel(from[2], from[1], from[0]);
}

}  // namespace morvane
