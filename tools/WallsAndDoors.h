#pragma once

#include "palette/Palette.h"
#include "tools/Gesture.h"

namespace morvane {

/// Painting in Wall and Door mode: walls with the left button, doors with the left and secret doors
/// with any other, on the cell side near the pointer. A set without the picture draws nothing.
void PaintEdge(Palette& palette, Gesture gesture, int Button, float X, float Y);

}  // namespace morvane
