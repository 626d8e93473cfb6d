#pragma once

namespace morvane {

/// Mouse button numbers, which combine to a mask.
enum MouseButton : int { kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

}  // namespace morvane
