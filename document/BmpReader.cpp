#include "document/Bmp.h"
#include "document/BmpHeader.h"
#include "document/BmpRle.h"
#include "document/LittleEndian.h"

namespace morvane {
namespace {

/// Decodes one row of up to 8 bits a pixel.
void ReadIndexRow(const std::uint8_t* row, const BmpHeader& header, Pixel* to) {
  const auto bits = static_cast<unsigned>(header.bits);
  const unsigned mask = (1U << bits) - 1;
  for (unsigned x = 0; x < static_cast<unsigned>(header.width); ++x) {
    const unsigned bit = x * bits;
    to[x] = header.palette[(row[bit / 8] >> (8 - bits - bit % 8)) & mask];
  }
}

std::uint32_t OverWhite(std::uint32_t value, std::uint32_t alpha) {
  return (value * alpha + 255 * (255 - alpha) + 127) / 255;
}

/// The bits of one pixel of 16 or 32 bits.
std::uint32_t RawPixel(const std::uint8_t* at, int bits) {
  std::uint32_t raw = at[0] | (static_cast<std::uint32_t>(at[1]) << 8U);
  if (bits == 32) {
    raw |= (static_cast<std::uint32_t>(at[2]) << 16U) | (static_cast<std::uint32_t>(at[3]) << 24U);
  }
  return raw;
}

/// Decodes one row with bit fields; alpha counts only where the picture uses it.
void ReadFieldRow(const std::uint8_t* row, const BmpHeader& header, bool alphaCounts, Pixel* to) {
  for (int x = 0; x < header.width; ++x) {
    const std::uint32_t raw = RawPixel(row, header.bits);
    row += header.bits / 8;
    const std::uint32_t alpha = alphaCounts ? header.alpha.Of(raw) : 255;
    to[x] = MakePixel(OverWhite(header.red.Of(raw), alpha), OverWhite(header.green.Of(raw), alpha),
                      OverWhite(header.blue.Of(raw), alpha));
  }
}

/// Many programs leave the alpha channel all zero and mean opaque.
bool UsesAlpha(const std::uint8_t* data, const BmpHeader& header) {
  for (int y = 0; header.alpha.mask != 0 && y < header.height; ++y) {
    const std::uint8_t* row = data + static_cast<std::size_t>(y) * header.RowBytes();
    for (int x = 0; x < header.width; ++x, row += header.bits / 8) {
      if ((RawPixel(row, header.bits) & header.alpha.mask) != 0) return true;
    }
  }
  return false;
}

void ReadRows(const std::uint8_t* data, const BmpHeader& header, Picture& picture) {
  const bool alphaCounts = header.bits != 24 && UsesAlpha(data, header);
  for (int y = 0; y < header.height; ++y) {
    const std::uint8_t* row = data + static_cast<std::size_t>(y) * header.RowBytes();
    Pixel* to = picture.Row(header.topDown ? y : header.height - 1 - y);
    if (header.bits <= 8) {
      ReadIndexRow(row, header, to);
    } else if (header.bits == 24) {
      for (int x = 0; x < header.width; ++x, row += 3) to[x] = MakePixel(row[2], row[1], row[0]);
    } else {
      ReadFieldRow(row, header, alphaCounts, to);
    }
  }
}

/// Whether the file is long enough for the size that it claims.
bool HasRoom(const BmpHeader& header, std::size_t bytes) {
  if (header.compression == BmpCompression::None) {
    return bytes / header.RowBytes() >= static_cast<std::size_t>(header.height);
  }
  // Two bytes make at most 255 pixels. A small picture may leave most of them out.
  constexpr std::size_t kSmall = 1U << 20U;
  const auto pixels =
      static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
  return pixels <= kSmall || pixels <= bytes * 128;
}

}  // namespace

bool IsBmp(const Bytes& content) {
  return content.size() >= 2 && content[0] == 'B' && content[1] == 'M';
}

Result<Picture> ReadBmp(const Bytes& content) {
  Result<BmpHeader> read = ReadBmpHeader(content);
  if (!read.Ok()) return Result<Picture>::Failed(read.Reason());
  const BmpHeader& header = read.Value();

  if (!HasRoom(header, content.size() - header.dataOffset)) {
    return Result<Picture>::Failed("The file ends too early.");
  }

  Picture picture(header.width, header.height);
  if (header.compression == BmpCompression::None) {
    ReadRows(content.data() + header.dataOffset, header, picture);
  } else {
    Failure failure = ReadBmpRuns(content, header, picture);
    if (!failure.empty()) return Result<Picture>::Failed(std::move(failure));
  }
  return picture;
}

}  // namespace morvane
