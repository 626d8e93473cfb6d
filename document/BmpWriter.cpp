#include "document/Bmp.h"
#include "document/LittleEndian.h"

namespace morvane {
namespace {

constexpr std::uint32_t kHeaders = 54;
constexpr std::uint32_t kPixelsPerMetre = 3780;  // 96 dpi

}  // namespace

Bytes WriteBmp(const PictureView& picture) {
  const std::size_t rowBytes = (static_cast<std::size_t>(picture.width) * 3 + 3) / 4 * 4;
  const std::size_t dataBytes = rowBytes * static_cast<std::size_t>(picture.height);
  Bytes bytes;
  bytes.reserve(kHeaders + dataBytes);
  bytes.push_back('B');
  bytes.push_back('M');
  Append32(bytes, static_cast<std::uint32_t>(kHeaders + dataBytes));
  Append32(bytes, 0);
  Append32(bytes, kHeaders);
  Append32(bytes, 40);
  Append32(bytes, static_cast<std::uint32_t>(picture.width));
  Append32(bytes, static_cast<std::uint32_t>(picture.height));
  Append16(bytes, 1);
  Append16(bytes, 24);
  Append32(bytes, 0);
  Append32(bytes, static_cast<std::uint32_t>(dataBytes));
  Append32(bytes, kPixelsPerMetre);
  Append32(bytes, kPixelsPerMetre);
  Append32(bytes, 0);
  Append32(bytes, 0);

  bytes.resize(kHeaders + dataBytes);
  std::uint8_t* row = bytes.data() + kHeaders;
  for (int y = picture.height - 1; y >= 0; --y, row += rowBytes) {
    const Pixel* from = picture.Row(y);
    std::uint8_t* to = row;
    for (int x = 0; x < picture.width; ++x, to += 3) {
      to[0] = BlueOf(from[x]);
      to[1] = GreenOf(from[x]);
      to[2] = RedOf(from[x]);
    }
  }
  return bytes;
}

}  // namespace morvane
