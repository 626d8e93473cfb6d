#pragma once

#include "palette/Palette.h"

namespace morvane {

/// A mouse press on the map, in map pixels.
void Canvas_MouseDown(Palette& palette, int Button, float X, float Y);

/// A mouse move over the map, or beyond its edge while a button is held. Button is the mask of the
/// held buttons.
void Canvas_MouseMove(Palette& palette, int Button, float X, float Y);

/// The pointer moved over a control where no outline belongs.
void HideOutline(Palette& palette);

}  // namespace morvane
