#include "document/picture/Transform.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "document/picture/PixelVector.h"

namespace morvane {
namespace {

constexpr int kQuad = kPixelsOf<HalfVector>;

void MirrorRows(const Surface& picture) {
  for (int y = 0; y < picture.height; ++y) {
    Pixel* left = picture.Row(y);
    Pixel* right = left + picture.width;
    for (; right - left >= std::ptrdiff_t{2} * kQuad; left += kQuad) {
      right -= kQuad;
      HalfVector first;
      HalfVector second;
      LoadPixels(first, left);
      LoadPixels(second, right);
      StorePixels(left, __builtin_shufflevector(second, second, 3, 2, 1, 0));
      StorePixels(right, __builtin_shufflevector(first, first, 3, 2, 1, 0));
    }
    std::reverse(left, right);
  }
}

void SwapRows(const Surface& picture) {
  for (int y = 0; y < picture.height / 2; ++y) {
    Pixel* upper = picture.Row(y);
    std::swap_ranges(upper, upper + picture.width, picture.Row(picture.height - 1 - y));
  }
}

/// A quarter turn of a picture into its target.
struct Turn {
  Surface target;
  PictureView picture;
  bool right;

  /// Where a pixel of the picture goes.
  Pixel* PlaceOf(int x, int y) const {
    return right ? target.Row(x) + (picture.height - 1 - y) : target.Row(picture.width - 1 - x) + y;
  }

  void TurnPixels(const Rect& part) const {
    for (int y = part.top; y < part.bottom; ++y) {
      for (int x = part.left; x < part.right; ++x) *PlaceOf(x, y) = picture.Row(y)[x];
    }
  }

  /// Turns four by four pixels at once.
  void TurnQuad(int x, int y) const {
    // Turned to the right, the lowest row of the picture comes first in the target.
    std::array<HalfVector, kQuad> rows;
    for (int i = 0; i < kQuad; ++i) {
      LoadPixels(rows[i], picture.Row(right ? y + kQuad - 1 - i : y + i) + x);
    }
    const auto [a, b, c, d] = rows;
    const HalfVector ab = __builtin_shufflevector(a, b, 0, 4, 1, 5);
    const HalfVector cd = __builtin_shufflevector(c, d, 0, 4, 1, 5);
    const HalfVector abHigh = __builtin_shufflevector(a, b, 2, 6, 3, 7);
    const HalfVector cdHigh = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    const int first = right ? y + kQuad - 1 : y;
    StorePixels(PlaceOf(x, first), __builtin_shufflevector(ab, cd, 0, 1, 4, 5));
    StorePixels(PlaceOf(x + 1, first), __builtin_shufflevector(ab, cd, 2, 3, 6, 7));
    StorePixels(PlaceOf(x + 2, first), __builtin_shufflevector(abHigh, cdHigh, 0, 1, 4, 5));
    StorePixels(PlaceOf(x + 3, first), __builtin_shufflevector(abHigh, cdHigh, 2, 3, 6, 7));
  }

  void TurnBlock(const Rect& block) const {
    const Rect quads = {block.left, block.top, block.right - block.Width() % kQuad,
                        block.bottom - block.Height() % kQuad};
    for (int x = quads.left; x < quads.right; x += kQuad) {
      for (int y = quads.top; y < quads.bottom; y += kQuad) TurnQuad(x, y);
    }
    TurnPixels({quads.right, block.top, block.right, block.bottom});
    TurnPixels({block.left, quads.bottom, quads.right, block.bottom});
  }
};

}  // namespace

void FlipInPlace(const Surface& picture, Transform flip) {
  flip == Transform::FlipHorizontal ? MirrorRows(picture) : SwapRows(picture);
}

void TurnInto(const Surface& target, const PictureView& picture, Transform transform) {
  const Turn turn = {target, picture, transform == Transform::RotateRight};
  // The rows of a block fit in the processor's cache.
  constexpr int kBlock = 64;
  for (int top = 0; top < picture.height; top += kBlock) {
    for (int left = 0; left < picture.width; left += kBlock) {
      const Rect block = {left, top, left + kBlock, top + kBlock};
      turn.TurnBlock(block.Intersected(picture.Bounds()));
    }
  }
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
