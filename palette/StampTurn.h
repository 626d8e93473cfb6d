#pragma once

#include "palette/Palette.h"

namespace morvane {

/// The four buttons beside the stamp. They turn the stamp, in the set "Custom" also the custom
/// picture, and return to Tile mode; the next pick brings the unturned tile back.
void FlipHorizontal_Click(Palette& palette);
void FlipVertical_Click(Palette& palette);
void Rotate_Click(Palette& palette);
void RotateLeft_Click(Palette& palette);

}  // namespace morvane
