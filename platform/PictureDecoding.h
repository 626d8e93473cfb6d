#pragma once

#include <chrono>

#include "document/Platform.h"
#include "document/picture/Picture.h"

namespace morvane {

struct DecodingLimits {
  long long pixels = kMostPixels;
  std::chrono::milliseconds time{2000};
};

/// Decodes a picture of any format but BMP with the toolkit's decoders, turned upright and laid
/// over white. One with more pixels than the limit is refused. The window waits no longer than the
/// limit of time: then the picture is given up, and its decoder ends aside as soon as it asks for
/// more bytes.
Result<Picture> DecodeForeignPicture(Bytes content, DecodingLimits limits = {});

/// Whether a decoder that was given up is still at work.
bool IsStillDecoding();

}  // namespace morvane
