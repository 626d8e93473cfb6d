#pragma once

namespace morvane {

/// How the hand paints: a press is one step of Undo, a stroke goes on behind it.
enum class Gesture { Press, Stroke };

}  // namespace morvane
