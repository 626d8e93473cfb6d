#pragma once

#include <cstdio>
#include <string>

#include "document/picture/Picture.h"

namespace morvane {

/// A description of how two pictures differ; empty if they are equal.
inline std::string Difference(const PictureView& one, const PictureView& other) {
  char text[160];
  if (one.width != other.width || one.height != other.height) {
    std::snprintf(text, sizeof text, "%d x %d is not %d x %d", one.width, one.height, other.width,
                  other.height);
    return text;
  }
  Rect rect;
  int count = 0;
  std::string first;
  for (int y = 0; y < one.height; ++y) {
    for (int x = 0; x < one.width; ++x) {
      if (one.Row(y)[x] == other.Row(y)[x]) continue;
      if (count++ == 0) {
        std::snprintf(text, sizeof text, "first at (%d, %d): %08X is not %08X", x, y, one.Row(y)[x],
                      other.Row(y)[x]);
        first = text;
      }
      rect = rect.United({x, y, x + 1, y + 1});
    }
  }
  if (count == 0) return {};
  std::snprintf(text, sizeof text, "%d pixels in (%d, %d) to (%d, %d), ", count, rect.left,
                rect.top, rect.right - 1, rect.bottom - 1);
  return text + first;
}

inline std::string Difference(const Picture& one, const Picture& other) {
  return Difference(one.View(), other.View());
}

}  // namespace morvane
