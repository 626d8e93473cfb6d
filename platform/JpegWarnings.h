#pragma once

namespace morvane {

/// Notes damage that Qt's JPEG decoder meets in this thread. The decoder fills in what is
/// missing and reports that only in its log.
class JpegWarnings {
 public:
  JpegWarnings();
  JpegWarnings(const JpegWarnings&) = delete;
  JpegWarnings& operator=(const JpegWarnings&) = delete;
  ~JpegWarnings();

  /// Installs the handler of messages, if the first decoder hasn't yet. To be called at the start:
  /// for a moment no other handler is installed.
  static void Install();

  bool WasMet() const { return wasMet_; }
  /// Takes a line of the decoder's log.
  void Hear(const char* line);

 private:
  bool wasMet_ = false;
};

}  // namespace morvane
