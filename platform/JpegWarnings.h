#pragma once

namespace morvane {

/// Starts to watch the log messages of Qt's JPEG decoder, which fills in what is missing in a file
/// and reports that only there. Call it at the start: for a moment no message handler is installed.
void WatchJpegWarnings();

/// Whether the decoder has found damage in this thread since the last call.
bool TakeJpegDamage();

}  // namespace morvane
