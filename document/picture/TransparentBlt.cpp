#include <algorithm>

#include "document/picture/Blit.h"
#include "document/picture/ClipCopy.h"
#include "document/picture/PixelVector.h"

namespace morvane {
namespace {

/// Copies rows at least one vector wide, except the pixels of the colour key. The last vector of a
/// row may overlap the one before, which changes nothing.
template <typename Vector>
inline void CopyKeyed(const Surface& target, const Rect& rect, const PictureView& source,
                      int sourceX, int sourceY, Pixel key) {
  constexpr int kStep = kPixelsOf<Vector>;
  const Vector keys = Vector{} + key;
  for (int row = 0; row < rect.Height(); ++row) {
    Pixel* to = target.Row(rect.top + row) + rect.left;
    const Pixel* from = source.Row(sourceY + row) + sourceX;
    for (int x = 0; x < rect.Width(); x += kStep) {
      const int at = std::min(x, rect.Width() - kStep);
      Vector old;
      Vector copied;
      LoadPixels(old, to + at);
      LoadPixels(copied, from + at);
      copied = copied == keys ? old : copied;
      StorePixels(to + at, copied);
    }
  }
}

}  // namespace

MORVANE_WIDE void TransparentBlt(const Surface& target, int x, int y, int width, int height,
                                 const PictureView& source, int sourceX, int sourceY,
                                 Color transparent) {
  const Rect rect = ClipCopy(target, {x, y, x + width, y + height}, source, sourceX, sourceY);
  if (rect.IsEmpty()) return;
  const Pixel key = PixelOf(transparent);
  const int fromX = rect.left - x + sourceX;
  const int fromY = rect.top - y + sourceY;
  if (rect.Width() >= kPixelsOf<PixelVector>) {
    CopyKeyed<PixelVector>(target, rect, source, fromX, fromY, key);
  } else if (rect.Width() >= kPixelsOf<HalfVector>) {
    CopyKeyed<HalfVector>(target, rect, source, fromX, fromY, key);
  } else {
    CopyKeyed<Pixel>(target, rect, source, fromX, fromY, key);
  }
  target.NoteDamage(rect);
}

}  // namespace morvane
