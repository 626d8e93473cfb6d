#pragma once

#include "document/bmp/BmpHeader.h"
#include "document/io/ByteSources.h"
#include "document/picture/Picture.h"

namespace morvane {

/// Decodes the run-length forms, from where their data begins, into a picture that already has its
/// size. Pixels that no run reaches keep palette entry 0. Tells whether runs or jumps lead out of
/// the picture, or indices out of the palette.
Failure ReadBmpRuns(ByteWindow& file, const BmpHeader& header, const Surface& picture,
                    bool& hasFoundDamage);

}  // namespace morvane
