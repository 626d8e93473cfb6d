#pragma once

#include <chrono>

#include "document/Picture.h"
#include "platform/Platform.h"

namespace morvane {

/// Decodes a picture of any format but BMP with the toolkit's decoders, turned upright and laid
/// over white. The window waits no longer than the limit: then the picture is given up, and its
/// decoder ends aside as soon as it asks for more bytes.
Result<Picture> DecodeForeignPicture(
    Bytes content, std::chrono::milliseconds limit = std::chrono::milliseconds(2000));

/// Whether a decoder that was given up is still at work.
bool IsStillDecoding();

}  // namespace morvane
