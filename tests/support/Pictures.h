#pragma once

#include <algorithm>
#include <string>

#include "document/bmp/Bmp.h"
#include "document/io/ByteSources.h"
#include "document/picture/Blit.h"

namespace morvane {

/// A picture whose pixels all have different colours, which depend on the seed.
inline Picture Speckled(int width, int height, unsigned seed = 1) {
  Picture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const unsigned number = static_cast<unsigned>(y * width + x) + seed * 100'003U;
      SetPixelV(picture.Draw(), x, y, (number * 2'654'435U) & 0xFFFFFFU);
    }
  }
  return picture;
}

/// An art sheet. Its fences have the colour key in every other column, but not in the very corner.
inline Picture SpeckledSheet(const std::string& name) {
  unsigned seed = 0;
  for (const char c : name) seed = seed * 31 + static_cast<unsigned char>(c);
  Picture sheet = Speckled(120, 180, seed % 1000 + 1);
  if (name != "classic-village/edges") return sheet;
  for (int x = 0; x < 60; x += 2)
    FillBox(sheet.Draw(), {x, x % 30 == 0 ? 1 : 0, x + 1, 30}, 0xFF00FF);
  return sheet;
}

inline Picture Cut(const PictureView& view, const Rect& rect) {
  Picture picture(rect.Width(), rect.Height());
  BitBlt(picture.Draw(), 0, 0, rect.Width(), rect.Height(), view, rect.left, rect.top);
  return picture;
}

/// Where two pictures differ first; empty if they are equal.
inline std::string Difference(const PictureView& one, const PictureView& other) {
  if (one.width != other.width || one.height != other.height) return "different sizes";
  for (int y = 0; y < one.height; ++y) {
    const Pixel* row = one.Row(y);
    const Pixel* found = std::mismatch(row, row + one.width, other.Row(y)).first;
    const auto x = found - row;
    if (x < one.width) return "at " + std::to_string(x) + ", " + std::to_string(y);
  }
  return {};
}

inline std::string Difference(const Picture& one, const Picture& other) {
  return Difference(one.View(), other.View());
}

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
