#pragma once

#include "document/Picture.h"
#include "platform/Platform.h"

namespace morvane {

/// Decodes a picture of any format but BMP with the toolkit's decoders, turned upright and laid
/// over white.
Result<Picture> DecodeForeignPicture(const Bytes& content);

}  // namespace morvane
