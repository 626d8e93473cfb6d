#pragma once

namespace morvane {

/// Mouse buttons, which are combined into a mask.
enum MouseButton : int { kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

}  // namespace morvane
