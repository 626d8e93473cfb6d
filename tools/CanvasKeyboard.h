#pragma once

#include "palette/Palette.h"

namespace morvane {

/// Keys by their numbers.
enum KeyCode : int {
  kKeyEscape = 27,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyM = 77,
  kKeyF11 = 122,
};

/// Modifier keys; held ones add up to a mask.
enum KeyModifier : int { kShift = 1, kCtrl = 2, kAlt = 4 };

/// A key going down while the map has the focus. Returns whether it means something here.
bool Canvas_KeyDown(Palette& palette, int Key, int Modifiers);

}  // namespace morvane
