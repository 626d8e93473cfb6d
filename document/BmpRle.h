#pragma once

#include "document/BmpHeader.h"
#include "document/Picture.h"

namespace morvane {

/// Decodes the run-length forms into a picture that already has its size. Pixels that no run
/// reaches keep palette entry 0.
Failure ReadBmpRuns(const Bytes& content, const BmpHeader& header, Picture& picture);

}  // namespace morvane
