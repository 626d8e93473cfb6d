#pragma once

namespace morvane {

/// How the mouse paints: a press begins an Undo step, and a stroke continues it.
enum class Gesture { Press, Stroke };

}  // namespace morvane
