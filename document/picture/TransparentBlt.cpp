#include "document/picture/Blit.h"
#include "document/picture/ClipCopy.h"
#include "document/picture/PixelVector.h"

namespace morvane {
namespace {

/// Copies pixels of a row from `begin` on, as many as fill whole vectors, except those of the
/// colour key. Returns the index of the first pixel that is left.
template <typename Vector>
inline int CopyKeyed(Pixel* to, const Pixel* from, int begin, int width, Pixel key) {
  constexpr int kStep = kPixelsOf<Vector>;
  const Vector keys = Vector{} + key;
  for (; begin <= width - kStep; begin += kStep) {
    Vector old;
    Vector copied;
    LoadPixels(old, to + begin);
    LoadPixels(copied, from + begin);
    copied = copied == keys ? old : copied;
    StorePixels(to + begin, copied);
  }
  return begin;
}

}  // namespace

MORVANE_WIDE void TransparentBlt(const Surface& target, int x, int y, int width, int height,
                                 const PictureView& source, int sourceX, int sourceY,
                                 Color transparent) {
  const Rect rect = ClipCopy(target, {x, y, x + width, y + height}, source, sourceX, sourceY);
  if (rect.IsEmpty()) return;
  const Pixel key = PixelOf(transparent);
  for (int row = rect.top; row < rect.bottom; ++row) {
    Pixel* to = target.Row(row) + rect.left;
    const Pixel* from = source.Row(row - y + sourceY) + rect.left - x + sourceX;
    int done = CopyKeyed<PixelVector>(to, from, 0, rect.Width(), key);
    done = CopyKeyed<HalfVector>(to, from, done, rect.Width(), key);
    CopyKeyed<Pixel>(to, from, done, rect.Width(), key);
  }
  target.NoteDamage(rect);
}

}  // namespace morvane
