#include "document/picture/Picture.h"

#include <algorithm>
#include <utility>

namespace morvane {

bool operator==(const PictureView& one, const PictureView& other) {
  if (one.width != other.width || one.height != other.height) return false;
  for (int y = 0; y < one.height; ++y) {
    if (!std::equal(one.Row(y), one.Row(y) + one.width, other.Row(y))) return false;
  }
  return true;
}

Picture::Picture(int width, int height, Color fill) : Picture(Unpainted(width, height)) {
  std::fill_n(pixels_.get(), Pixels(), PixelOf(fill));
}

Picture::Picture(const PictureView& view) : Picture(Unpainted(view.width, view.height)) {
  for (int y = 0; y < height_; ++y) std::copy_n(view.Row(y), width_, Row(y));
}

Picture Picture::Unpainted(int width, int height) {
  Picture picture;
  picture.width_ = width;
  picture.height_ = height;
  picture.pixels_ = std::make_unique_for_overwrite<Pixel[]>(picture.Pixels());
  return picture;
}

void Picture::Swap(Picture& other) noexcept {
  std::swap(width_, other.width_);
  std::swap(height_, other.height_);
  std::swap(pixels_, other.pixels_);
}

}  // namespace morvane
