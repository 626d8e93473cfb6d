#pragma once

#include "document/picture/Rect.h"

namespace morvane {

/// Designed measures of the main window that rules and forms share, in pixels.
inline constexpr Size kClientSize = {787, 537};
inline constexpr int kToolBarHeight = 28;
inline constexpr int kStatusBarHeight = 18;
inline constexpr int kTabStripRight = 162;

}  // namespace morvane
