#pragma once

#include "palette/Palette.h"

namespace morvane {

/// The mode button: switches from Tile to Wall to Door mode and back to Tile mode.
void WallButton_Click(Palette& palette);

}  // namespace morvane
