#include "document/Transform.h"

namespace morvane {

Picture Transformed(const PictureView& picture, Transform transform) {
  const int W = picture.width;
  const int H = picture.height;
  const bool turns = transform == Transform::RotateRight || transform == Transform::RotateLeft;
  Picture result(turns ? H : W, turns ? W : H);
  for (int y = 0; y < H; ++y) {
    const Pixel* from = picture.Row(y);
    for (int x = 0; x < W; ++x) {
      switch (transform) {
        case Transform::FlipHorizontal:
          result.Row(y)[W - 1 - x] = from[x];
          break;
        case Transform::FlipVertical:
          result.Row(H - 1 - y)[x] = from[x];
          break;
        case Transform::RotateRight:
          result.Row(x)[H - 1 - y] = from[x];
          break;
        case Transform::RotateLeft:
          result.Row(W - 1 - x)[y] = from[x];
          break;
      }
    }
  }
  return result;
}

}  // namespace morvane
