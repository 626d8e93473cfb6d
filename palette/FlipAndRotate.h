#pragma once

#include "palette/Palette.h"

namespace morvane {

/// The four buttons beside the stamp. They flip or turn the stamp, and in the set "Custom" also the
/// full picture, and switch to Tile mode. Choosing a tile again restores its original picture.
void FlipHorizontal_Click(Palette& palette);
void FlipVertical_Click(Palette& palette);
void Rotate_Click(Palette& palette);
void RotateLeft_Click(Palette& palette);

}  // namespace morvane
