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

  bool HasFoundDamage() const { return hasFoundDamage_; }
  /// Receives a line of the decoder's log.
  void Receive(const char* line);

 private:
  bool hasFoundDamage_ = false;
};

}  // namespace morvane
