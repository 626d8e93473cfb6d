#pragma once

#include "palette/Palette.h"
#include "tools/Gesture.h"

namespace morvane {

/// Paints in Tile mode: the left button stamps at the cell under the mouse, the right one copies
/// the blank map to the area of the stamp. Other buttons, and most positions on grid lines, have no
/// effect.
void PaintTile(Palette& palette, Gesture gesture, int Button, float X, float Y);

}  // namespace morvane
