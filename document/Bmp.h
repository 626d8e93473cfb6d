#pragma once

#include "document/Picture.h"
#include "platform/Platform.h"

namespace morvane {

/// Whether the bytes claim to be a BMP file.
bool IsBmp(const Bytes& content);

/// Decodes a BMP file of any form that isn't itself a JPEG, a PNG or a fax inside. What is
/// see-through is laid over white. A file that ends too early or contradicts itself is refused with
/// its reason.
Result<Picture> ReadBmp(const Bytes& content);

/// Encodes a picture as an uncompressed BMP file of 24 bits a pixel at 96 dpi.
Bytes WriteBmp(const PictureView& picture);

}  // namespace morvane
