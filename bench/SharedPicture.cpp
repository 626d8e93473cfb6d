#include "bench/SharedPicture.h"

#include <cstring>
#include <random>

#include "document/Grid.h"
#include "platform/Images.h"

namespace morvane::bench {

Operation SharedPicture::AsOperation(const std::string& name, int pieces) const {
  const auto start = std::make_shared<const Picture>(*picture_);
  // The pixels must not be reallocated, since the benchmarks keep pointers to them.
  return {.name = name,
          .pieces = pieces,
          .output = [picture = picture_] { return PixelsOf(ImageOver(picture->View())); },
          .reset = [start, picture = picture_] { CopyWhole(picture->Draw(), start->View()); }};
}

std::string SizeText(Size size) {
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

Picture RandomPicture(Size size, unsigned seed) {
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
  for (int y = 0; y + size.height <= kDesignedMap.height; y += kCellSize) {
    for (int x = 0; x + size.width <= kDesignedMap.width; x += kCellSize) places.push_back({x, y});
  }
  return places;
}

void CopyRows(const Surface& target, Place place, const PictureView& source) {
  const std::size_t bytes = static_cast<std::size_t>(source.width) * sizeof(Pixel);
  for (int row = 0; row < source.height; ++row) {
    std::memcpy(target.Row(place.y + row) + place.x, source.Row(row), bytes);
  }
}

void CopyWhole(const Surface& target, const PictureView& source) {
  const auto rows = static_cast<std::size_t>(source.height);
  std::memcpy(target.pixels, source.pixels,
              rows * static_cast<std::size_t>(source.width) * sizeof(Pixel));
}

Bytes PixelsOf(QImage image) {
  image.convertTo(QImage::Format_RGB32);
  return {image.constBits(), image.constBits() + image.sizeInBytes()};
}

}  // namespace morvane::bench
