#pragma once

#include <algorithm>
#include <string>

#include "document/bmp/Bmp.h"
#include "document/io/ByteSources.h"
#include "document/picture/Blit.h"

namespace morvane {

/// A picture of the pixels that a function returns for each place.
template <typename PixelAt>
Picture PictureOf(int width, int height, PixelAt pixelAt) {
  Picture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.Row(y)[x] = pixelAt(x, y);
  }
  return picture;
}

/// A picture whose pixels all have different colours, which depend on the seed.
inline Picture Speckled(int width, int height, unsigned seed = 1) {
  return PictureOf(width, height, [&](int x, int y) {
    const unsigned number = static_cast<unsigned>(y * width + x) + seed * 100'003U;
    return PixelOf((number * 2'654'435U) & 0xFFFFFFU);
  });
}

/// An art sheet. Its fences have the colour key in every other column, except in their top left
/// corner, so that a key that is read from there is noticed.
inline Picture SpeckledSheet(const std::string& name) {
  Picture sheet = Speckled(120, 180, std::hash<std::string>()(name));
  if (name != "classic-village/edges") return sheet;
  for (int x = 0; x < 60; x += 2) FillBox(sheet.Draw(), {x, int(x % 30 == 0), x + 1, 30}, 0xFF00FF);
  return sheet;
}

/// A part of a picture, which must be inside it.
inline Picture Cut(const PictureView& view, const Rect& rect) {
  return PictureOf(rect.Width(), rect.Height(),
                   [&](int x, int y) { return view.Row(rect.top + y)[rect.left + x]; });
}

/// A slow and simple clipped copy, of all pixels but those of the colour key.
inline void Copy(const Picture& from, int toX, int toY, Picture& onto, const Rect& clip,
                 const Pixel* key = nullptr) {
  for (int y = 0; y < from.Height(); ++y) {
    for (int x = 0; x < from.Width(); ++x) {
      const int X = toX + x;
      const int Y = toY + y;
      if (X < clip.left || Y < clip.top || X >= clip.right || Y >= clip.bottom) continue;
      const Pixel pixel = from.View().Row(y)[x];
      if (key == nullptr || pixel != *key) onto.Row(Y)[X] = pixel;
    }
  }
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

}  // namespace morvane
