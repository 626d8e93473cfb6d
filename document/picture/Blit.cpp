#include "document/picture/Blit.h"

#include <algorithm>
#include <cstring>

namespace morvane {
namespace {

/// The part of a copy that lies inside both the target and the source, in target coordinates.
Rect ClipCopy(const Surface& target, const Rect& rect, const PictureView& source, int sourceX,
              int sourceY) {
  const int dx = rect.left - sourceX;
  const int dy = rect.top - sourceY;
  return rect.Intersected(target.Bounds())
      .Intersected({dx, dy, source.width + dx, source.height + dy});
}

}  // namespace

void BitBlt(const Surface& target, int x, int y, int width, int height, const PictureView& source,
            int sourceX, int sourceY) {
  const Rect rect = ClipCopy(target, {x, y, x + width, y + height}, source, sourceX, sourceY);
  if (rect.IsEmpty()) return;
  const std::size_t bytes = static_cast<std::size_t>(rect.Width()) * sizeof(Pixel);
  for (int row = rect.top; row < rect.bottom; ++row) {
    std::memcpy(target.Row(row) + rect.left,
                source.Row(row - y + sourceY) + rect.left - x + sourceX, bytes);
  }
  target.NoteDamage(rect);
}

void TransparentBlt(const Surface& target, int x, int y, int width, int height,
                    const PictureView& source, int sourceX, int sourceY, Color transparent) {
  const Rect rect = ClipCopy(target, {x, y, x + width, y + height}, source, sourceX, sourceY);
  if (rect.IsEmpty()) return;
  const Pixel key = PixelOf(transparent);
  for (int row = rect.top; row < rect.bottom; ++row) {
    Pixel* __restrict to = target.Row(row) + rect.left;
    const Pixel* __restrict from = source.Row(row - y + sourceY) + rect.left - x + sourceX;
    for (int i = 0; i < rect.Width(); ++i) to[i] = from[i] == key ? to[i] : from[i];
  }
  target.NoteDamage(rect);
}

Color GetPixel(const PictureView& picture, int x, int y) {
  return ColorOf(picture.Row(y)[x]);
}

void SetPixelV(const Surface& target, int x, int y, Color color) {
  FillBox(target, {x, y, x + 1, y + 1}, color);
}

void FillBox(const Surface& target, const Rect& box, Color color) {
  const Rect rect = box.Intersected(target.Bounds());
  if (rect.IsEmpty()) return;
  for (int row = rect.top; row < rect.bottom; ++row) {
    std::fill_n(target.Row(row) + rect.left, rect.Width(), PixelOf(color));
  }
  target.NoteDamage(rect);
}

}  // namespace morvane
