#pragma once

#include <string>

#include "document/picture/Blit.h"
#include "document/picture/Picture.h"

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

}  // namespace morvane
