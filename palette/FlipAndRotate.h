#pragma once

#include "palette/Palette.h"

namespace morvane {

/// The four buttons beside the stamp. They turn the stamp, and in the set "Custom" also the custom
/// picture, and return to Tile mode. The next choice of a tile brings the unturned one back.
void FlipHorizontal_Click(Palette& palette);
void FlipVertical_Click(Palette& palette);
void Rotate_Click(Palette& palette);
void RotateLeft_Click(Palette& palette);

}  // namespace morvane
