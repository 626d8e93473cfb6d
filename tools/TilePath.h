#pragma once

#include "palette/Palette.h"

namespace morvane {

/// A press in Tile mode: the left button stamps at the cell under the pointer, the right one wipes
/// the footprint of the stamp back to blank map. Other buttons and refused places change nothing.
void TilePath(Palette& palette, int Button, float X, float Y);

}  // namespace morvane
