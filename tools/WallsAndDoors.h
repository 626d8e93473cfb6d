#pragma once

#include "palette/Palette.h"
#include "tools/Gesture.h"

namespace morvane {

/// Paints in Wall and Door mode on the cell side near the mouse: a wall with the left button; a
/// door with the left and a secret door with any other button. Does nothing if the tile set has no
/// such picture.
void PaintEdge(Palette& palette, Gesture gesture, int Button, float X, float Y);

}  // namespace morvane
