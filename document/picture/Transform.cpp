#include "document/picture/Transform.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "document/picture/PixelVector.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace morvane {
namespace {

/// Side of a block that is turned at once: one cache line.
constexpr int kBlock = 16;
/// Blocks are grouped into tiles, so that source and target stay within the TLB.
constexpr int kTile = 256;
/// A larger picture doesn't fit in the cache, so its turned copy is written past the cache.
constexpr std::int64_t kCachedPixels = std::int64_t{1} << 20U;

void Reverse(PixelVector& pixels) {
  pixels = __builtin_shufflevector(pixels, pixels, 7, 6, 5, 4, 3, 2, 1, 0);
}
void Reverse(HalfVector& pixels) {
  pixels = __builtin_shufflevector(pixels, pixels, 3, 2, 1, 0);
}

enum class Order { Same, Reversed };

/// Exchanges two runs of pixels.
template <typename Vector, Order order>
inline void Exchange(Pixel* one, Pixel* other) {
  Vector first;
  Vector second;
  LoadPixels(first, one);
  LoadPixels(second, other);
  if constexpr (order == Order::Reversed) {
    Reverse(first);
    Reverse(second);
  }
  StorePixels(one, second);
  StorePixels(other, first);
}

/// Prefetches the cache lines of the next row: the processor doesn't predict reads at two places at
/// once.
inline void AskFor(const Pixel* one, const Pixel* other) {
  __builtin_prefetch(one, 1);
  __builtin_prefetch(other, 1);
}

MORVANE_WIDE void MirrorRows(const Surface& picture) {
  constexpr std::ptrdiff_t kStep = kPixelsOf<PixelVector>;
  constexpr std::ptrdiff_t kHalf = kPixelsOf<HalfVector>;
  for (int y = 0; y < picture.height; ++y) {
    Pixel* left = picture.Row(y);
    Pixel* right = left + picture.width;
    const std::ptrdiff_t toNext = y + 1 < picture.height ? picture.stride : 0;
    for (; right - left >= 4 * kStep; left += 2 * kStep) {
      right -= 2 * kStep;
      AskFor(left + toNext, right + toNext);
      Exchange<PixelVector, Order::Reversed>(left, right + kStep);
      Exchange<PixelVector, Order::Reversed>(left + kStep, right);
    }
    for (; right - left >= 2 * kHalf; left += kHalf) {
      right -= kHalf;
      Exchange<HalfVector, Order::Reversed>(left, right);
    }
    std::reverse(left, right);
  }
}

MORVANE_WIDE void SwapRows(const Surface& picture) {
  constexpr int kStep = kPixelsOf<PixelVector>;
  for (int y = 0; y < picture.height / 2; ++y) {
    Pixel* upper = picture.Row(y);
    Pixel* lower = picture.Row(picture.height - 1 - y);
    int x = 0;
    for (; x <= picture.width - 2 * kStep; x += 2 * kStep) {
      AskFor(upper + picture.stride + x, lower - picture.stride + x);
      Exchange<PixelVector, Order::Same>(upper + x, lower + x);
      Exchange<PixelVector, Order::Same>(upper + x + kStep, lower + x + kStep);
    }
    std::swap_ranges(upper + x, upper + picture.width, lower + x);
  }
}

/// Where a pixel of the source goes.
struct Turn {
  bool right;
  int width;   ///< of the source
  int height;  ///< of the source

  int Row(int x) const { return right ? x : width - 1 - x; }
  int Column(int y) const { return right ? height - 1 - y : y; }
};

void TurnPixels(const Surface& target, const PictureView& picture, const Rect& part, Turn turn) {
  for (int x = part.left; x < part.right; ++x) {
    Pixel* to = target.Row(turn.Row(x));
    for (int y = part.top; y < part.bottom; ++y) to[turn.Column(y)] = picture.Row(y)[x];
  }
}

/// Exchanges the sides of four by four pixels: rows come in, columns go out.
void ExchangeSides(std::array<HalfVector, 4>& rows) {
  const auto [a, b, c, d] = rows;
  const HalfVector ab = __builtin_shufflevector(a, b, 0, 4, 1, 5);
  const HalfVector cd = __builtin_shufflevector(c, d, 0, 4, 1, 5);
  const HalfVector abHigh = __builtin_shufflevector(a, b, 2, 6, 3, 7);
  const HalfVector cdHigh = __builtin_shufflevector(c, d, 2, 6, 3, 7);
  rows[0] = __builtin_shufflevector(ab, cd, 0, 1, 4, 5);
  rows[1] = __builtin_shufflevector(ab, cd, 2, 3, 6, 7);
  rows[2] = __builtin_shufflevector(abHigh, cdHigh, 0, 1, 4, 5);
  rows[3] = __builtin_shufflevector(abHigh, cdHigh, 2, 3, 6, 7);
}

/// Turns four by four pixels: source column x + i becomes the row at `to` + i * toStep.
void TurnQuad(Pixel* to, std::ptrdiff_t toStep, const Pixel* from, std::ptrdiff_t fromStep) {
  std::array<HalfVector, 4> rows;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    LoadPixels(rows[i], from + static_cast<std::ptrdiff_t>(i) * fromStep);
  }
  ExchangeSides(rows);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    StorePixels(to + static_cast<std::ptrdiff_t>(i) * toStep, rows[i]);
  }
}

/// Turns the whole quads of a picture that stays in the cache.
void TurnQuads(const Surface& target, const PictureView& picture, const Rect& part, Turn turn) {
  constexpr int kQuad = kPixelsOf<HalfVector>;
  const std::ptrdiff_t toStep = turn.right ? target.stride : -target.stride;
  const std::ptrdiff_t fromStep = turn.right ? -picture.stride : picture.stride;
  for (int y = part.top; y < part.bottom; y += kQuad) {
    // Turned to the right, the lowest row of the source comes first in the target.
    const int first = turn.right ? y + kQuad - 1 : y;
    for (int x = part.left; x < part.right; x += kQuad) {
      TurnQuad(target.Row(turn.Row(x)) + turn.Column(first), toStep, picture.Row(first) + x,
               fromStep);
    }
  }
}

/// Writes a row of a block past the cache, where the processor can do so.
void WriteBlockRow(Pixel* to, const Pixel* from) {
#if defined(__SSE2__)
  if (reinterpret_cast<std::uintptr_t>(to) % sizeof(__m128i) == 0) {
    for (int i = 0; i < kBlock; i += kPixelsOf<HalfVector>) {
      _mm_stream_si128(reinterpret_cast<__m128i*>(to + i),
                       _mm_load_si128(reinterpret_cast<const __m128i*>(from + i)));
    }
    return;
  }
#endif
  std::memcpy(to, from, kBlock * sizeof(Pixel));
}

/// Turns a block of a large picture through a buffer, so that the target is written in whole cache
/// lines.
void TurnBlock(const Surface& target, const PictureView& picture, int x, int y, Turn turn) {
  alignas(64) std::array<Pixel, std::size_t{kBlock} * kBlock> staged;
  const Surface stage = {staged.data(), kBlock, kBlock, kBlock};
  const PictureView block = {picture.Row(y) + x, kBlock, kBlock, picture.stride};
  TurnQuads(stage, block, block.Bounds(), {turn.right, kBlock, kBlock});
  const int top = turn.right ? x : turn.width - kBlock - x;
  const int left = turn.right ? turn.height - kBlock - y : y;
  for (int i = 0; i < kBlock; ++i) WriteBlockRow(target.Row(top + i) + left, stage.Row(i));
}

void TurnTiles(const Surface& target, const PictureView& picture, const Rect& part, Turn turn) {
  for (int top = 0; top < part.bottom; top += kTile) {
    for (int left = 0; left < part.right; left += kTile) {
      for (int x = left; x < std::min(left + kTile, part.right); x += kBlock) {
        for (int y = top; y < std::min(top + kTile, part.bottom); y += kBlock) {
          TurnBlock(target, picture, x, y, turn);
        }
      }
    }
  }
}

}  // namespace

void FlipInPlace(const Surface& picture, Transform flip) {
  flip == Transform::FlipHorizontal ? MirrorRows(picture) : SwapRows(picture);
}

void TurnInto(const Surface& target, const PictureView& picture, Transform transform) {
  const Turn turn = {transform == Transform::RotateRight, picture.width, picture.height};
  const bool isLarge = std::int64_t{picture.width} * picture.height > kCachedPixels;
  const int step = isLarge ? kBlock : kPixelsOf<HalfVector>;
  const Rect whole = {0, 0, picture.width / step * step, picture.height / step * step};
  isLarge ? TurnTiles(target, picture, whole, turn) : TurnQuads(target, picture, whole, turn);
  TurnPixels(target, picture, {whole.right, 0, picture.width, picture.height}, turn);
  TurnPixels(target, picture, {0, whole.bottom, whole.right, picture.height}, turn);
}

Picture Transformed(const PictureView& picture, Transform transform) {
  if (IsFlip(transform)) {
    Picture result(picture);
    FlipInPlace(result.Draw(), transform);
    return result;
  }
  Picture result = Picture::Unpainted(picture.height, picture.width);
  TurnInto(result.Draw(), picture, transform);
  return result;
}

}  // namespace morvane
