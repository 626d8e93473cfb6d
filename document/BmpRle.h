#pragma once

#include "document/BmpHeader.h"
#include "document/ByteSources.h"
#include "document/Picture.h"

namespace morvane {

/// Decodes the run-length forms, from where their data begins, into a picture that already has its
/// size. Pixels that no run reaches keep palette entry 0.
Failure ReadBmpRuns(ByteWindow& file, const BmpHeader& header, const Surface& picture);

}  // namespace morvane
