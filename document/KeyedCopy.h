#pragma once

#include "document/Picture.h"

namespace morvane {

/// Copies what isn't of the key's colour onto a target of the same size, of at least one pixel.
void CopyKeyed(const Surface& to, const PictureView& from, Pixel key);

}  // namespace morvane
