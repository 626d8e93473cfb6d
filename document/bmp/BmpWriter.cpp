#include <algorithm>

#include "document/bmp/Bmp.h"
#include "document/bmp/PixelBytes.h"
#include "document/io/LittleEndian.h"

namespace morvane {
namespace {

constexpr std::uint32_t kPixelsPerMetre = 3780;  // 96 dpi
constexpr std::size_t kPixelBytes = 3;

std::uint8_t ChannelOf(Pixel pixel, std::size_t channel) {
  return static_cast<std::uint8_t>(pixel >> (channel * 8));
}

/// Writes the bytes of an encoded row from offset `place` on. The padding after the last pixel is
/// 0.
void WriteRow(std::span<std::uint8_t> to, const Pixel* row, std::size_t width, std::size_t place) {
  const std::size_t end = place + to.size();
  std::uint8_t* byte = to.data();
  const auto writeByByte = [&](std::size_t until) {
    for (; place < until; ++place) {
      const std::size_t pixel = place / kPixelBytes;
      *byte++ = pixel < width ? ChannelOf(row[pixel], place % kPixelBytes) : std::uint8_t{0};
    }
  };
  writeByByte(std::min(end, (place + kPixelBytes - 1) / kPixelBytes * kPixelBytes));
  const std::size_t first = place / kPixelBytes;
  const std::size_t last = std::min(width, end / kPixelBytes);
  if (first < last) {
    PackPixels(byte, row + first, static_cast<int>(last - first));
    byte += (last - first) * kPixelBytes;
    place = last * kPixelBytes;
  }
  writeByByte(end);
}

}  // namespace

BmpEncoder::BmpEncoder(const PictureView& picture)
    : picture_(picture),
      rowBytes_((static_cast<std::size_t>(picture.width) * kPixelBytes + 3) / 4 * 4) {
  const std::size_t dataBytes = rowBytes_ * static_cast<std::size_t>(picture.height);
  headers_[0] = 'B';
  headers_[1] = 'M';
  Write32(headers_, 2, static_cast<std::uint32_t>(kHeaderBytes + dataBytes));
  Write32(headers_, 10, kHeaderBytes);
  Write32(headers_, 14, 40);
  Write32(headers_, 18, static_cast<std::uint32_t>(picture.width));
  Write32(headers_, 22, static_cast<std::uint32_t>(picture.height));
  Write16(headers_, 26, 1);
  Write16(headers_, 28, 24);
  Write32(headers_, 34, static_cast<std::uint32_t>(dataBytes));
  Write32(headers_, 38, kPixelsPerMetre);
  Write32(headers_, 42, kPixelsPerMetre);
}

std::size_t BmpEncoder::Size() const {
  return kHeaderBytes + rowBytes_ * static_cast<std::size_t>(picture_.height);
}

Failure BmpEncoder::ReadAt(std::size_t place, std::span<std::uint8_t> buffer) {
  while (!buffer.empty()) {
    std::size_t count = 0;
    if (place < kHeaderBytes) {
      count = std::min(buffer.size(), kHeaderBytes - place);
      std::copy_n(headers_.begin() + static_cast<std::ptrdiff_t>(place), count, buffer.begin());
    } else {
      const std::size_t row = (place - kHeaderBytes) / rowBytes_;
      const std::size_t inRow = (place - kHeaderBytes) % rowBytes_;
      count = std::min(buffer.size(), rowBytes_ - inRow);
      WriteRow(buffer.first(count), picture_.Row(picture_.height - 1 - static_cast<int>(row)),
               static_cast<std::size_t>(picture_.width), inRow);
    }
    place += count;
    buffer = buffer.subspan(count);
  }
  return {};
}

}  // namespace morvane
