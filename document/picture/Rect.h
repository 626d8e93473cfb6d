#pragma once

#include <algorithm>

namespace morvane {

struct Size {
  int width = 0;
  int height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle of pixels. The column at right and the row at bottom lie outside.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool IsEmpty() const { return left >= right || top >= bottom; }

  Rect Intersected(const Rect& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
  }

  /// The smallest rectangle that contains both; an empty one is ignored.
  Rect United(const Rect& other) const {
    if (IsEmpty()) return other;
    if (other.IsEmpty()) return *this;
    return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
            std::max(bottom, other.bottom)};
  }

  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace morvane
