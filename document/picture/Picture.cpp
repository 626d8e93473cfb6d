#include "document/picture/Picture.h"

#include <algorithm>
#include <new>
#include <utility>

namespace morvane {
namespace {

constexpr std::align_val_t kCacheLine{64};

}  // namespace

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
  const std::size_t bytes = picture.Pixels() * sizeof(Pixel);
  picture.pixels_.reset(static_cast<Pixel*>(::operator new(bytes, kCacheLine)));
  return picture;
}

void Picture::Release::operator()(Pixel* pixels) const {
  ::operator delete(pixels, kCacheLine);
}

void Picture::Swap(Picture& other) noexcept {
  std::swap(width_, other.width_);
  std::swap(height_, other.height_);
  std::swap(pixels_, other.pixels_);
}

}  // namespace morvane
