#pragma once

namespace morvane {

/// Detects damage that Qt's JPEG decoder finds in this thread. The decoder fills in what is missing
/// and reports that only in its log.
class JpegWarnings {
 public:
  JpegWarnings();
  JpegWarnings(const JpegWarnings&) = delete;
  JpegWarnings& operator=(const JpegWarnings&) = delete;
  ~JpegWarnings();

  /// Installs the message handler, unless that was done before. Call it at the start: for a moment
  /// no handler is installed.
  static void Install();

  bool WasMet() const { return wasMet_; }
  /// Receives a line of the decoder's log.
  void Hear(const char* line);

 private:
  bool wasMet_ = false;
};

}  // namespace morvane
