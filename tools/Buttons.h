#pragma once

namespace morvane {

/// Mouse buttons by their numbers; held buttons add up to a mask.
enum MouseButton : int { kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

}  // namespace morvane
