#pragma once

#include "palette/Palette.h"

namespace morvane {

/// Key codes.
enum KeyCode : int {
  kKeyEscape = 27,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyM = 77,
  kKeyF11 = 122,
};

/// Modifier keys, which are combined into a mask.
enum KeyModifier : int { kShift = 1, kCtrl = 2, kAlt = 4 };

/// A key press while the map has the focus. Returns whether the key was handled.
bool Canvas_KeyDown(Palette& palette, int Key, int Modifiers);

}  // namespace morvane
