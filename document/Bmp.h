#pragma once

#include <array>

#include "document/Picture.h"
#include "platform/Platform.h"

namespace morvane {

/// Whether the bytes claim to be a BMP file.
bool IsBmp(ByteSource& file);

/// Decodes a BMP file of any form that isn't itself a JPEG, a PNG or a fax inside. What is
/// see-through is laid over white. A file that ends too early or contradicts itself is refused with
/// its reason.
Result<Picture> ReadBmp(ByteSource& file);

/// A picture as an uncompressed BMP file of 24 bits a pixel at 96 dpi. The bytes are made when they
/// are asked for.
class BmpEncoder : public ByteSource {
 public:
  /// The picture must stay as it is while the encoder is in use.
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
