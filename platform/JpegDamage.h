#pragma once

namespace morvane {

/// Notes damage that Qt's JPEG decoder meets in this thread. The decoder makes up what is missing
/// and tells of it nowhere but in its log.
class JpegDamage {
 public:
  JpegDamage();
  JpegDamage(const JpegDamage&) = delete;
  JpegDamage& operator=(const JpegDamage&) = delete;
  ~JpegDamage();

  bool WasMet() const { return wasMet_; }
  /// Takes a line of the decoder's log.
  void Hear(const char* line);

 private:
  bool wasMet_ = false;
};

}  // namespace morvane
