#include <algorithm>
#include <array>
#include <cstdint>

#include "document/Blit.h"
#include "document/ClipCopy.h"
#include "document/PixelVector.h"

namespace morvane {
namespace {

constexpr int kLongRun = 32;  ///< pixels

/// What stands in the target after pixels were laid over it, of which those of the key's colour are
/// left out.
template <typename Vector>
inline void Overlay(Vector& result, const Pixel* to, const Pixel* from, const Vector& keys) {
  Vector old;
  LoadPixels(old, to);
  LoadPixels(result, from);
  result = result == keys ? old : result;
}

/// For rows of at least one vector. The last vector of a row may overlap the one before, which
/// changes nothing: it is read first, so that it needn't wait for what was just written.
template <typename Vector>
inline void CopyKeyedRows(Surface to, PictureView from, Pixel key) {
  const Vector keys = Vector{} + key;
  const int last = to.width - kPixelsOf<Vector>;
  for (int y = 0; y < to.height; ++y) {
    Pixel* toRow = to.Row(y);
    const Pixel* fromRow = from.Row(y);
    Vector end;
    Overlay(end, toRow + last, fromRow + last, keys);
    for (int x = 0; x < last; x += kPixelsOf<Vector>) {
      Vector pixels;
      Overlay(pixels, toRow + x, fromRow + x, keys);
      StorePixels(toRow + x, pixels);
    }
    StorePixels(toRow + last, end);
  }
}

/// Whether all of a long run of pixels are of the key's colour.
inline bool IsAllKey(const Pixel* from, const PixelVector& keys) {
  PixelVector difference{};
  for (int i = 0; i < kLongRun; i += kPixelsOf<PixelVector>) {
    PixelVector pixels;
    LoadPixels(pixels, from + i);
    difference |= pixels ^ keys;
  }
  std::array<std::uint64_t, 4> words;
  static_assert(sizeof words == sizeof difference);
  std::memcpy(words.data(), &difference, sizeof difference);
  return (words[0] | words[1] | words[2] | words[3]) == 0;
}

/// The same for rows of at least one long run: such runs are often left out.
inline void CopyKeyedRuns(Surface to, PictureView from, Pixel key) {
  const PixelVector keys = PixelVector{} + key;
  const int last = to.width - kLongRun;
  for (int y = 0; y < to.height; ++y) {
    for (int x = 0; x < last + kLongRun; x += kLongRun) {
      const int run = std::min(x, last);
      Pixel* toRun = to.Row(y) + run;
      const Pixel* fromRun = from.Row(y) + run;
      if (IsAllKey(fromRun, keys)) continue;
      for (int i = 0; i < kLongRun; i += kPixelsOf<PixelVector>) {
        PixelVector pixels;
        Overlay(pixels, toRun + i, fromRun + i, keys);
        StorePixels(toRun + i, pixels);
      }
    }
  }
}

inline void CopyKeyed(Surface to, PictureView from, Pixel key) {
  if (to.width >= kLongRun) {
    CopyKeyedRuns(to, from, key);
  } else if (to.width >= kPixelsOf<PixelVector>) {
    CopyKeyedRows<PixelVector>(to, from, key);
  } else if (to.width >= kPixelsOf<HalfVector>) {
    CopyKeyedRows<HalfVector>(to, from, key);
  } else {
    CopyKeyedRows<Pixel>(to, from, key);
  }
}

}  // namespace

MORVANE_WIDE void TransparentBlt(const Surface& target, int x, int y, int width, int height,
                                 const PictureView& source, int sourceX, int sourceY,
                                 Color transparent) {
  const Rect rect = ClipCopy(target, {x, y, x + width, y + height}, source, sourceX, sourceY);
  if (rect.IsEmpty()) return;
  const Surface to = {target.Row(rect.top) + rect.left, rect.Width(), rect.Height(), target.stride};
  const PictureView from = {source.Row(rect.top - y + sourceY) + rect.left - x + sourceX,
                            rect.Width(), rect.Height(), source.stride};
  CopyKeyed(to, from, PixelOf(transparent));
  target.NoteDamage(rect);
}

}  // namespace morvane
