#include "document/picture/Transform.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace morvane {

void FlipInPlace(const Surface& picture, Transform flip) {
  if (flip == Transform::FlipHorizontal) {
    for (int y = 0; y < picture.height; ++y) {
      std::reverse(picture.Row(y), picture.Row(y) + picture.width);
    }
  } else {
    std::vector<Pixel> row(static_cast<std::size_t>(picture.width));
    for (int y = 0; y < picture.height / 2; ++y) {
      Pixel* upper = picture.Row(y);
      Pixel* lower = picture.Row(picture.height - 1 - y);
      std::copy_n(upper, row.size(), row.data());
      std::copy_n(lower, row.size(), upper);
      std::copy_n(row.data(), row.size(), lower);
    }
  }
}

void TurnInto(const Surface& target, const PictureView& picture, Transform transform) {
  // A row of the target is a column of the picture, from bottom to top or from top to bottom.
  const bool isRight = transform == Transform::RotateRight;
  const Pixel* first =
      isRight ? picture.Row(picture.height - 1) : picture.pixels + picture.width - 1;
  const std::ptrdiff_t along = isRight ? -picture.stride : picture.stride;
  const std::ptrdiff_t across = isRight ? 1 : -1;
  // The rows of a block fit in the processor's cache.
  constexpr Size kBlock = {8, 64};
  for (int top = 0; top < target.height; top += kBlock.height) {
    const int bottom = std::min(top + kBlock.height, target.height);
    for (int left = 0; left < target.width; left += kBlock.width) {
      const int width = std::min(kBlock.width, target.width - left);
      for (int y = top; y < bottom; ++y) {
        Pixel* to = target.Row(y) + left;
        const Pixel* from = first + left * along + y * across;
        if (width == kBlock.width) {  // a loop of constant length, which compilers unroll
          for (int x = 0; x < kBlock.width; ++x) to[x] = from[x * along];
        } else {
          for (int x = 0; x < width; ++x) to[x] = from[x * along];
        }
      }
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
