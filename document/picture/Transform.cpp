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
  constexpr Size kBlock = {8, 32};
  for (int top = 0; top < target.height; top += kBlock.height) {
    for (int left = 0; left < target.width; left += kBlock.width) {
      const int right = std::min(left + kBlock.width, target.width);
      const int bottom = std::min(top + kBlock.height, target.height);
      for (int y = top; y < bottom; ++y) {
        Pixel* to = target.Row(y);
        const Pixel* from = first + y * across;
        for (int x = left; x < right; ++x) to[x] = from[x * along];
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
