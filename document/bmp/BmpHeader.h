#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "document/io/Result.h"
#include "document/picture/Color.h"

namespace morvane {

enum class BmpCompression { None, Rle8, Rle4, Rle24 };

/// One channel of a pixel with bit fields.
struct BmpChannel {
  std::uint32_t mask = 0;

  /// The channel's value in a pixel, scaled to 0..255; 0 if the mask is empty.
  std::uint32_t Of(std::uint32_t pixel) const;
};

/// The contents of the headers of a BMP file, checked against the file and against each other.
struct BmpHeader {
  int width = 0;
  int height = 0;
  bool topDown = false;
  int bits = 0;  ///< per pixel
  BmpCompression compression = BmpCompression::None;
  BmpChannel red, green, blue, alpha;  ///< for 16 and 32 bits
  std::vector<Pixel> palette;          ///< up to 8 bits; padded with black
  std::size_t colors = 0;              ///< number of palette entries in the file
  std::size_t dataOffset = 0;          ///< of the pixels in the file

  /// Bytes of an uncompressed row.
  std::size_t RowBytes() const { return (static_cast<std::size_t>(width) * bits + 31) / 32 * 4; }
};

/// Headers, masks and palette never take more bytes.
inline constexpr std::size_t kBmpHeadBytes = 4096;

/// Reads the headers of a file of that size. `head` is the complete file, or its first
/// kBmpHeadBytes bytes.
Result<BmpHeader> ReadBmpHeader(std::span<const std::uint8_t> head, std::size_t fileSize);

}  // namespace morvane
