#include <cstdint>
#include <vector>

#include "document/picture/Blit.h"

namespace morvane {
namespace {

/// The source pixel nearest to the middle of a target pixel, along one side of a scaled copy.
int Nearest(int at, int size, int sourceSize) {
  return static_cast<int>((std::int64_t{at} * 2 + 1) * sourceSize / (std::int64_t{size} * 2));
}

}  // namespace

void StretchBlt(const Surface& target, int x, int y, int width, int height,
                const PictureView& source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight) {
  const Rect rect = Rect{x, y, x + width, y + height}.Intersected(target.Bounds());
  const Rect from = Rect{sourceX, sourceY, sourceX + sourceWidth, sourceY + sourceHeight};
  if (rect.IsEmpty() || from.IsEmpty() || from != from.Intersected(source.Bounds())) return;
  std::vector<int> columns;
  columns.reserve(static_cast<std::size_t>(rect.Width()));
  for (int column = rect.left; column < rect.right; ++column) {
    columns.push_back(sourceX + Nearest(column - x, width, sourceWidth));
  }
  for (int row = rect.top; row < rect.bottom; ++row) {
    const Pixel* sourceRow = source.Row(sourceY + Nearest(row - y, height, sourceHeight));
    Pixel* to = target.Row(row) + rect.left;
    for (const int column : columns) *to++ = sourceRow[column];
  }
  target.NoteDamage(rect);
}

}  // namespace morvane
