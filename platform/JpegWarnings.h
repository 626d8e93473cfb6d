#pragma once

namespace morvane {

/// Starts to listen to Qt's JPEG decoder, which fills in what is missing in a file and reports that
/// only in its log. Call it at the start: for a moment no message handler is installed.
void WatchJpegWarnings();

/// Whether the decoder has found damage in this thread since the last call.
bool TakeJpegDamage();

}  // namespace morvane
