#pragma once

#include "document/picture/Rect.h"

namespace morvane {

/// Layout of the main window, in pixels, for the core and the forms.
inline constexpr Size kClientSize = {787, 537};
inline constexpr int kToolBarHeight = 28;
inline constexpr int kStatusBarHeight = 18;
inline constexpr int kTabStripRight = 162;

}  // namespace morvane
