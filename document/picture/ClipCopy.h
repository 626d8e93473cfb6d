#pragma once

#include "document/picture/Picture.h"

namespace morvane {

/// The part of a copy that lies inside both the target and the source, in target coordinates.
inline Rect ClipCopy(const Surface& target, const Rect& rect, const PictureView& source,
                     int sourceX, int sourceY) {
  const int dx = rect.left - sourceX;
  const int dy = rect.top - sourceY;
  return rect.Intersected(target.Bounds())
      .Intersected({dx, dy, source.width + dx, source.height + dy});
}

}  // namespace morvane
