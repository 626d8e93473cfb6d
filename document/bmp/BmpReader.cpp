#include <algorithm>

#include "document/bmp/Bmp.h"
#include "document/bmp/BmpRle.h"
#include "document/bmp/PixelBytes.h"

namespace morvane {
namespace {

/// Decodes one row of up to 8 bits a pixel. Returns the largest index.
unsigned ReadIndexRow(const std::uint8_t* row, const BmpHeader& header, Pixel* to) {
  const auto bits = static_cast<unsigned>(header.bits);
  const unsigned mask = (1U << bits) - 1;
  const auto width = static_cast<unsigned>(header.width);
  const Pixel* palette = header.palette.data();
  unsigned largest = 0;
  for (unsigned x = 0; x < width; ++x) {
    const unsigned bit = x * bits;
    const unsigned index = (row[bit / 8] >> (8 - bits - bit % 8)) & mask;
    largest = std::max(largest, index);
    to[x] = palette[index];
  }
  return largest;
}

std::uint32_t OverWhite(std::uint32_t value, std::uint32_t alpha) {
  return (value * alpha + 255 * (255 - alpha) + 127) / 255;
}

/// The bits of one pixel of 16 or 32 bits.
template <int bits>
std::uint32_t RawPixel(const std::uint8_t* at) {
  std::uint32_t raw = at[0] | (static_cast<std::uint32_t>(at[1]) << 8U);
  if constexpr (bits == 32) {
    raw |= (static_cast<std::uint32_t>(at[2]) << 16U) | (static_cast<std::uint32_t>(at[3]) << 24U);
  }
  return raw;
}

/// Decodes one row with bit fields. If the mask of alpha is empty, the pixels are opaque.
template <int bits>
void ReadFieldRow(const std::uint8_t* row, const BmpHeader& header, BmpChannel alpha, Pixel* to) {
  const BmpChannel red = header.red;
  const BmpChannel green = header.green;
  const BmpChannel blue = header.blue;
  for (int x = 0; x < header.width; ++x, row += bits / 8) {
    const std::uint32_t raw = RawPixel<bits>(row);
    std::uint32_t r = red.Of(raw);
    std::uint32_t g = green.Of(raw);
    std::uint32_t b = blue.Of(raw);
    if (alpha.mask != 0) {
      const std::uint32_t opacity = alpha.Of(raw);
      r = OverWhite(r, opacity);
      g = OverWhite(g, opacity);
      b = OverWhite(b, opacity);
    }
    to[x] = MakePixel(r, g, b);
  }
}

template <int bits>
bool UsesAlpha(const std::uint8_t* row, const BmpHeader& header) {
  for (int x = 0; x < header.width; ++x, row += bits / 8) {
    if ((RawPixel<bits>(row) & header.alpha.mask) != 0) return true;
  }
  return false;
}

/// Decodes uncompressed rows in the order of the file.
class RowReader {
 public:
  RowReader(const BmpHeader& header, const Surface& picture) : header_(header), target_(picture) {}

  void Read(const std::uint8_t* bytes) {
    Pixel* to = RowOf(done_++);
    if (header_.bits <= 8) {
      hasFoundDamage_ |= ReadIndexRow(bytes, header_, to) >= header_.colors;
    } else if (header_.bits == 24) {
      UnpackPixels(to, bytes, header_.width);
    } else if (header_.bits == 16) {
      ReadFields<16>(bytes, to);
    } else {
      ReadFields<32>(bytes, to);
    }
  }
  bool HasFoundDamage() const { return hasFoundDamage_; }

 private:
  Pixel* RowOf(int number) const {
    return target_.Row(header_.topDown ? number : header_.height - 1 - number);
  }

  template <int bits>
  void ReadFields(const std::uint8_t* bytes, Pixel* to) {
    const bool mayUseAlpha = header_.alpha.mask != 0 && !alphaCounts_;
    if (mayUseAlpha && UsesAlpha<bits>(bytes, header_)) BeginAlpha();
    ReadFieldRow<bits>(bytes, header_, alphaCounts_ ? header_.alpha : BmpChannel{}, to);
  }

  /// Many programs set all alpha values to 0 although the picture is opaque. So alpha counts only
  /// when a value isn't 0; then the rows before this one are transparent.
  void BeginAlpha() {
    alphaCounts_ = true;
    for (int row = 0; row < done_ - 1; ++row) {
      std::fill_n(RowOf(row), header_.width, PixelOf(kWhite));
    }
  }

  const BmpHeader& header_;
  Surface target_;
  int done_ = 0;  ///< number of rows decoded
  bool alphaCounts_ = false;
  bool hasFoundDamage_ = false;
};

Failure ReadRows(ByteWindow& file, const BmpHeader& header, const Surface& picture,
                 bool& hasFoundDamage) {
  RowReader rows(header, picture);
  for (int row = 0; row < header.height; ++row) {
    if (!file.Show(header.RowBytes())) return file.Reason();
    rows.Read(file.Data());
    file.Take(header.RowBytes());
  }
  hasFoundDamage = rows.HasFoundDamage();
  return {};
}

/// Whether the file is long enough for the size in its header.
bool HasRoom(const BmpHeader& header, std::size_t bytes) {
  if (header.compression == BmpCompression::None) {
    return bytes / header.RowBytes() >= static_cast<std::size_t>(header.height);
  }
  // Two bytes encode at most 255 pixels. A small picture may omit most of its pixels.
  constexpr std::size_t kSmall = 1U << 20U;
  const auto pixels =
      static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
  return pixels <= kSmall || pixels <= bytes * 128;
}

}  // namespace

bool IsBmp(ByteSource& file) {
  std::array<std::uint8_t, 2> mark{};
  return file.Size() >= mark.size() && file.ReadAt(0, mark).empty() && mark[0] == 'B' &&
         mark[1] == 'M';
}

Failure BmpDecoder::Open() {
  if (!window_.Show(std::min(file_.Size(), kBmpHeadBytes))) return window_.Reason();
  Result<BmpHeader> header = ReadBmpHeader({window_.Data(), window_.Shown()}, file_.Size());
  if (!header.Ok()) return header.Reason();
  header_ = std::move(header.Value());
  window_.Skip(header_.dataOffset);
  return HasRoom(header_, window_.Left()) ? Failure() : "The file ends too early.";
}

Failure BmpDecoder::Decode(const Surface& picture) {
  const auto read = header_.compression == BmpCompression::None ? &ReadRows : &ReadBmpRuns;
  return read(window_, header_, picture, hasFoundDamage_);
}

Result<LoadedPicture> ReadBmp(ByteSource& file, long long maxPixels) {
  BmpDecoder decoder(file);
  Failure failure = decoder.Open();
  if (!failure.empty()) return Failed{std::move(failure)};
  const Size size = decoder.PictureSize();
  if (static_cast<long long>(size.width) * size.height > maxPixels) return Failed{kTooLarge};
  Picture picture = Picture::Unpainted(size.width, size.height);
  failure = decoder.Decode(picture.Draw());
  if (!failure.empty()) return Failed{std::move(failure)};
  return LoadedPicture{std::move(picture), decoder.HasFoundDamage()};
}

}  // namespace morvane
