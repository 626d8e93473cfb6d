#pragma once

#include <ios>
#include <sstream>
#include <string>

#include "document/picture/Picture.h"

namespace morvane {

/// A description of how two pictures differ; empty if they are equal.
inline std::string Difference(const PictureView& one, const PictureView& other) {
  std::ostringstream text;
  if (one.width != other.width || one.height != other.height) {
    text << one.width << " x " << one.height << " is not " << other.width << " x " << other.height;
    return text.str();
  }
  Rect rect;
  for (int y = 0; y < one.height; ++y) {
    for (int x = 0; x < one.width; ++x) {
      const Pixel pixel = one.Row(y)[x];
      if (pixel == other.Row(y)[x]) continue;
      if (rect.IsEmpty()) text << std::hex << pixel << " is not " << other.Row(y)[x] << std::dec;
      if (rect.IsEmpty()) text << " at (" << x << ", " << y << "), the first of those in (";
      rect = rect.United({x, y, x + 1, y + 1});
    }
  }
  if (rect.IsEmpty()) return {};
  text << rect.left << ", " << rect.top << ") to (" << rect.right << ", " << rect.bottom << ')';
  return text.str();
}

inline std::string Difference(const Picture& one, const Picture& other) {
  return Difference(one.View(), other.View());
}

}  // namespace morvane
