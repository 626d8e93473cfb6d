#pragma once

#include "palette/Palette.h"

namespace morvane {

/// A mouse button going down on the map at a pixel of it.
void Canvas_MouseDown(Palette& palette, int Button, float X, float Y);

/// A move of the pointer over the map, or beyond its edge while a button is held. Button is the
/// mask of all buttons held.
void Canvas_MouseMove(Palette& palette, int Button, float X, float Y);

/// The pointer moved over a control where no outline belongs.
void HideOutline(Palette& palette);

}  // namespace morvane
