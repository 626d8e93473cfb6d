#pragma once

#include <array>

#include "document/bmp/BmpHeader.h"
#include "document/io/ByteSources.h"
#include "document/picture/Picture.h"

namespace morvane {

/// Whether the file begins with the signature of a BMP file.
bool IsBmp(ByteSource& file);

/// Decodes BMP files of all kinds except those that contain JPEG, PNG or fax data. Transparent
/// pixels are blended with white. A file that is too short, or whose headers contradict each other,
/// is refused with a reason.
class BmpDecoder {
 public:
  explicit BmpDecoder(ByteSource& file) : file_(file), window_(file) {}

  /// Reads the headers. Must be called first.
  Failure Open();
  /// The picture's size in pixels.
  Size PictureSize() const { return {header_.width, header_.height}; }
  /// Decodes into a picture of that size. After a failure its pixels are undefined.
  Failure Decode(const Surface& picture);
  /// Whether there were runs outside the picture, or indices outside the palette.
  bool HasFoundDamage() const { return hasFoundDamage_; }

 private:
  ByteSource& file_;
  ByteWindow window_;
  BmpHeader header_;
  bool hasFoundDamage_ = false;
};

/// Decodes a BMP file. One with more pixels than the limit is refused.
Result<LoadedPicture> ReadBmp(ByteSource& file, long long maxPixels = kMaxPixels);

/// A picture as an uncompressed BMP file of 24 bits per pixel at 96 dpi, encoded on demand.
class BmpEncoder : public ByteSource {
 public:
  /// The picture must not change while the encoder is in use.
  explicit BmpEncoder(const PictureView& picture);

  std::size_t Size() const override;
  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override;

 private:
  static constexpr std::size_t kHeaderBytes = 54;

  PictureView picture_;
  std::size_t rowBytes_;
  std::array<std::uint8_t, kHeaderBytes> headers_{};
};

}  // namespace morvane
