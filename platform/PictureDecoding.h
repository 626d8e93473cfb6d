#pragma once

#include <chrono>

#include "document/Platform.h"
#include "document/picture/Picture.h"

namespace morvane {

struct DecodingLimits {
  long long pixels = kMaxPixels;
  std::chrono::milliseconds time{2000};
};

/// Decodes a picture of any format but BMP with Qt's decoders, turned upright and laid over white.
/// One with more pixels than the limit is refused. After the time limit decoding is abandoned, and
/// its thread ends as soon as the decoder reads more bytes; until then all other calls fail. Throws
/// std::bad_alloc if memory runs out.
Result<Picture> DecodeForeignPicture(Bytes content, DecodingLimits limits = {});

/// Whether an abandoned decoder is still running.
bool IsStillDecoding();

}  // namespace morvane
