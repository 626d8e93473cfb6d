#pragma once

#include "palette/Palette.h"

namespace morvane {

/// A mouse button was pressed on the map, at a position in map pixels.
void Canvas_MouseDown(Palette& palette, int Button, float X, float Y);

/// The mouse moved over the map, or outside it while a button is held. Button is the mask of the
/// held buttons.
void Canvas_MouseMove(Palette& palette, int Button, float X, float Y);

/// The mouse moved over another control, so the outline is hidden.
void HideOutline(Palette& palette);

}  // namespace morvane
