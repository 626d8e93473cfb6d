#pragma once

#include "palette/Palette.h"

namespace morvane {

/// One step of the cycle Tile, Wall, Door, Tile.
void WallButton_Click(Palette& palette);

}  // namespace morvane
