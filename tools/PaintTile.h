#pragma once

#include "palette/Palette.h"
#include "tools/Gesture.h"

namespace morvane {

/// Painting in Tile mode: the left button stamps at the cell under the pointer, the right one
/// erases the area of the stamp to blank map. Other buttons and refused places change nothing.
void PaintTile(Palette& palette, Gesture gesture, int Button, float X, float Y);

}  // namespace morvane
