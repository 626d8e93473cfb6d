#include "document/Transform.h"

#include <algorithm>
#include <array>

#include "document/PixelVector.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace morvane {
namespace {

/// Turned at once: rows of a whole cache line on both sides.
constexpr int kBlock = 16;
/// Blocks are taken in tiles, so that both sides stay within the pages the processor remembers.
constexpr int kTile = 256;
/// A target above this size doesn't stay in the cache, so it is written past it.
constexpr std::ptrdiff_t kCachedPixels = std::ptrdiff_t{1} << 20;

PixelVector Reversed(PixelVector pixels) {
  return __builtin_shufflevector(pixels, pixels, 3, 2, 1, 0);
}

void ReverseRow(Pixel* row, int width) {
  int left = 0;
  int right = width;
  for (; right - left >= 2 * kVectorPixels; left += kVectorPixels) {
    right -= kVectorPixels;
    const PixelVector first = LoadPixels(row + left);
    StorePixels(row + left, Reversed(LoadPixels(row + right)));
    StorePixels(row + right, Reversed(first));
  }
  std::reverse(row + left, row + right);
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
  for (int y = part.top; y < part.bottom; ++y) {
    const Pixel* from = picture.Row(y);
    for (int x = part.left; x < part.right; ++x) target.Row(turn.Row(x))[turn.Column(y)] = from[x];
  }
}

using Block = std::array<Pixel, kBlock * kBlock>;

/// Exchanges the sides of four by four pixels: rows come in, columns go out.
void ExchangeSides(std::array<PixelVector, 4>& rows) {
  const auto [a, b, c, d] = rows;
  const PixelVector ab = __builtin_shufflevector(a, b, 0, 4, 1, 5);
  const PixelVector cd = __builtin_shufflevector(c, d, 0, 4, 1, 5);
  const PixelVector abHigh = __builtin_shufflevector(a, b, 2, 6, 3, 7);
  const PixelVector cdHigh = __builtin_shufflevector(c, d, 2, 6, 3, 7);
  rows = {__builtin_shufflevector(ab, cd, 0, 1, 4, 5), __builtin_shufflevector(ab, cd, 2, 3, 6, 7),
          __builtin_shufflevector(abHigh, cdHigh, 0, 1, 4, 5),
          __builtin_shufflevector(abHigh, cdHigh, 2, 3, 6, 7)};
}

/// Reads one block of the source; row i of the result is column i of the block, in the order of the
/// target.
void GatherBlock(Block& block, const PictureView& picture, int x, int y, bool right) {
  for (int down = 0; down < kBlock; down += kVectorPixels) {
    // Turned to the right the lowest row of the source comes first in the target.
    const int first = right ? y + kBlock - 1 - down : y + down;
    const int step = right ? -1 : 1;
    for (int across = 0; across < kBlock; across += kVectorPixels) {
      std::array<PixelVector, 4> rows;
      for (int i = 0; i < 4; ++i) {
        rows[static_cast<std::size_t>(i)] = LoadPixels(picture.Row(first + i * step) + x + across);
      }
      ExchangeSides(rows);
      for (int i = 0; i < 4; ++i) {
        StorePixels(&block[static_cast<std::size_t>((across + i) * kBlock + down)],
                    rows[static_cast<std::size_t>(i)]);
      }
    }
  }
}

void WriteRow(Pixel* to, const Pixel* from) {
  std::memcpy(to, from, kBlock * sizeof(Pixel));
}

/// The same past the cache, where the processor can do so.
void WriteRowPastCache(Pixel* to, const Pixel* from) {
#if defined(__SSE2__)
  if (reinterpret_cast<std::uintptr_t>(to) % sizeof(__m128i) == 0) {
    for (int i = 0; i < kBlock; i += kVectorPixels) {
      _mm_stream_si128(reinterpret_cast<__m128i*>(to + i),
                       _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i)));
    }
    return;
  }
#endif
  WriteRow(to, from);
}

void TurnBlock(const Surface& target, const PictureView& picture, int x, int y, Turn turn,
               bool pastCache) {
  Block block;
  GatherBlock(block, picture, x, y, turn.right);
  const int column = turn.right ? turn.height - kBlock - y : y;
  for (int i = 0; i < kBlock; ++i) {
    Pixel* to = target.Row(turn.Row(x + i)) + column;
    const Pixel* from = &block[static_cast<std::size_t>(i * kBlock)];
    pastCache ? WriteRowPastCache(to, from) : WriteRow(to, from);
  }
}

}  // namespace

void FlipInPlace(const Surface& picture, Transform flip) {
  if (flip == Transform::FlipHorizontal) {
    for (int y = 0; y < picture.height; ++y) ReverseRow(picture.Row(y), picture.width);
    return;
  }
  for (int y = 0; y < picture.height / 2; ++y) {
    Pixel* upper = picture.Row(y);
    std::swap_ranges(upper, upper + picture.width, picture.Row(picture.height - 1 - y));
  }
}

void TurnInto(const Surface& target, const PictureView& picture, Transform transform) {
  const Turn turn = {transform == Transform::RotateRight, picture.width, picture.height};
  const int wholeWidth = picture.width / kBlock * kBlock;
  const int wholeHeight = picture.height / kBlock * kBlock;
  const bool pastCache =
      static_cast<std::ptrdiff_t>(picture.width) * picture.height > kCachedPixels;
  for (int top = 0; top < wholeHeight; top += kTile) {
    for (int left = 0; left < wholeWidth; left += kTile) {
      const int bottom = std::min(top + kTile, wholeHeight);
      const int right = std::min(left + kTile, wholeWidth);
      for (int x = left; x < right; x += kBlock) {
        for (int y = top; y < bottom; y += kBlock) {
          TurnBlock(target, picture, x, y, turn, pastCache);
        }
      }
    }
  }
  TurnPixels(target, picture, {wholeWidth, 0, picture.width, picture.height}, turn);
  TurnPixels(target, picture, {0, wholeHeight, wholeWidth, picture.height}, turn);
}

Picture Transformed(const PictureView& picture, Transform transform) {
  if (transform == Transform::FlipHorizontal || transform == Transform::FlipVertical) {
    Picture result(picture);
    FlipInPlace(result.Draw(), transform);
    return result;
  }
  Picture result(picture.height, picture.width);
  TurnInto(result.Draw(), picture, transform);
  return result;
}

}  // namespace morvane
