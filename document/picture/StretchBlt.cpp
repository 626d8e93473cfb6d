#include <algorithm>
#include <cstddef>
#include <vector>

#include "document/picture/Blit.h"

namespace morvane {
namespace {

/// For target pixels begin to end - 1 along one axis: the source pixel at the centre of each. For
/// the possible sizes of pictures, rounding in the division never changes the result.
std::vector<int> Nearest(int begin, int end, int size, int sourceSize) {
  std::vector<int> indices(static_cast<std::size_t>(end - begin));
  for (int& index : indices) {
    index = static_cast<int>((2.0 * begin++ + 1) * sourceSize / (2.0 * size));
  }
  return indices;
}

}  // namespace

void StretchBlt(const Surface& target, int x, int y, int width, int height,
                const PictureView& source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight) {
  const Rect rect = Rect{x, y, x + width, y + height}.Intersected(target.Bounds());
  const Rect from = Rect{sourceX, sourceY, sourceX + sourceWidth, sourceY + sourceHeight};
  if (rect.IsEmpty() || from.IsEmpty() || from != from.Intersected(source.Bounds())) return;
  const std::vector<int> columns = Nearest(rect.left - x, rect.right - x, width, sourceWidth);
  const std::vector<int> rows = Nearest(rect.top - y, rect.bottom - y, height, sourceHeight);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Pixel* to = target.Row(rect.top + static_cast<int>(i)) + rect.left;
    const Pixel* sourceRow = source.Row(sourceY + rows[i]) + sourceX;
    if (i > 0 && rows[i] == rows[i - 1]) {
      std::copy_n(to - target.stride, columns.size(), to);
    } else {
      std::transform(columns.begin(), columns.end(), to,
                     [=](int column) { return sourceRow[column]; });
    }
  }
  target.NoteDamage(rect);
}

}  // namespace morvane
