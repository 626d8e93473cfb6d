#pragma once

#include "document/bmp/BmpHeader.h"
#include "document/io/ByteSources.h"
#include "document/picture/Picture.h"

namespace morvane {

/// Decodes run-length data into a picture that has the size in the header. The window is at the
/// start of the data. Pixels that no run covers get palette entry 0. Sets hasFoundDamage to whether
/// there are runs or jumps outside the picture, or indices outside the palette.
Failure ReadBmpRuns(ByteWindow& file, const BmpHeader& header, const Surface& picture,
                    bool& hasFoundDamage);

}  // namespace morvane
