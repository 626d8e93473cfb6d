#include "bench/Stage.h"

#include <cstring>
#include <random>
#include <utility>

#include "document/Grid.h"

namespace morvane::bench {

Stage::Stage(Picture start) : picture(std::make_shared<Picture>(std::move(start))) {}

std::size_t Stage::Bytes() const {
  return static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height()) * sizeof(Pixel);
}

Work Stage::AsWork(const std::string& name, int pieces) const {
  const auto start = std::make_shared<const Picture>(*picture);
  // The pixels must not be reallocated, since the benchmarks keep pointers to them.
  const auto reset = [start, picture = picture, bytes = Bytes()] {
    std::memcpy(picture->Row(0), start->View().pixels, bytes);
  };
  return {name, pieces, reset, PixelsOf(picture)};
}

std::string SizeText(Size size) {
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

Picture Noise(Size size, unsigned seed) {
  std::mt19937 random(seed);
  Picture picture(size.width, size.height);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      picture.Row(y)[x] = PixelOf(static_cast<Color>(random()) & kWhite);
    }
  }
  return picture;
}

std::vector<Place> Cells(Size size) {
  std::vector<Place> places;
  for (int y = 0; y + size.height <= kMap.height; y += kCellSize) {
    for (int x = 0; x + size.width <= kMap.width; x += kCellSize) places.push_back({x, y});
  }
  return places;
}

void CopyRows(const Surface& target, Place place, const PictureView& source) {
  const std::size_t bytes = static_cast<std::size_t>(source.width) * sizeof(Pixel);
  for (int row = 0; row < source.height; ++row) {
    std::memcpy(target.Row(place.y + row) + place.x, source.Row(row), bytes);
  }
}

void CopyWhole(const Stage& target, const Stage& source) {
  std::memcpy(target.Draw().pixels, source.View().pixels, target.Bytes());
}

Result PixelsOf(const std::shared_ptr<Picture>& picture) {
  return [picture] {
    const PictureView view = picture->View();
    const auto count = static_cast<std::size_t>(view.width) * static_cast<std::size_t>(view.height);
    return std::as_bytes(std::span(view.pixels, count));
  };
}

}  // namespace morvane::bench
