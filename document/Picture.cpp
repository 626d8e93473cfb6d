#include "document/Picture.h"

#include <algorithm>

namespace morvane {

Picture::Picture(int width, int height, Color fill)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), PixelOf(fill)) {}

Picture::Picture(const PictureView& view) : width_(view.width), height_(view.height) {
  pixels_.reserve(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
  for (int y = 0; y < height_; ++y) {
    pixels_.insert(pixels_.end(), view.Row(y), view.Row(y) + width_);
  }
}

}  // namespace morvane
