#pragma once

#include "document/Platform.h"
#include "document/bmp/Bmp.h"
#include "document/io/ByteSources.h"

namespace morvane {

/// A picture as the bytes of a map file.
inline Bytes WriteBmp(const PictureView& picture) {
  BmpEncoder file(picture);
  return ReadAll(file).Value();
}

inline Result<Picture> ReadBmp(const Bytes& bytes) {
  MemorySource file(bytes);
  Result<LoadedPicture> loaded = ReadBmp(file);
  if (!loaded.Ok()) return Failed{loaded.Reason()};
  return std::move(loaded.Value().picture);
}

/// A file that owns its bytes.
class OwnedBytes : public ByteSource {
 public:
  explicit OwnedBytes(Bytes bytes) : bytes_(std::move(bytes)), source_(bytes_) {}

  std::size_t Size() const override { return source_.Size(); }
  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    if (place + buffer.size() > readable) return "Input/output error";
    return source_.ReadAt(place, buffer);
  }

  std::size_t readable = static_cast<std::size_t>(-1);  ///< bytes; reading beyond them fails

 private:
  Bytes bytes_;
  MemorySource source_;
};

}  // namespace morvane
