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

  /// The channel of a pixel, scaled to 0..255; 0 where the mask is empty.
  std::uint32_t Of(std::uint32_t pixel) const;
};

/// The contents of the headers of a BMP file, checked against the file and against each other.
struct BmpHeader {
  int width = 0;
  int height = 0;
  bool topDown = false;
  int bits = 0;  ///< a pixel
  BmpCompression compression = BmpCompression::None;
  BmpChannel red, green, blue, alpha;  ///< for 16 and 32 bits
  std::vector<Pixel> palette;          ///< for up to 8 bits, black beyond the file's own
  std::size_t colors = 0;              ///< that the file has of them
  std::size_t dataOffset = 0;

  /// Bytes of an uncompressed row.
  std::size_t RowBytes() const { return (static_cast<std::size_t>(width) * bits + 31) / 32 * 4; }
};

/// Headers, masks and palette together are never longer.
inline constexpr std::size_t kBmpHeadBytes = 4096;

/// Reads the headers from the head of a file of that size. The head is the whole file, or
/// kBmpHeadBytes of it.
Result<BmpHeader> ReadBmpHeader(std::span<const std::uint8_t> head, std::size_t fileSize);

}  // namespace morvane
