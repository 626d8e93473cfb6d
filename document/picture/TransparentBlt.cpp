#include <algorithm>
#include <array>
#include <cstdint>

#include "document/picture/Blit.h"
#include "document/picture/ClipCopy.h"
#include "document/picture/PixelVector.h"

namespace morvane {
namespace {

constexpr int kLongRun = 32;  ///< pixels

/// The target's pixels after source pixels were copied over them, except those of the colour key.
template <typename Vector>
inline void Overlay(Vector& result, const Pixel* to, const Pixel* from, const Vector& keys) {
  Vector old;
  LoadPixels(old, to);
  LoadPixels(result, from);
  result = result == keys ? old : result;
}

/// Copies a row of this many vectors, of which the last may overlap the one before. All are read
/// before the first is written, so that no read waits for a write.
template <typename Vector, int kVectors>
inline void CopyKeyedRow(Pixel* to, const Pixel* from, int width, const Vector& keys) {
  constexpr int kStep = kPixelsOf<Vector>;
  const int at = kVectors > 1 ? 0 : width - kStep;
  Vector pixels;
  Overlay(pixels, to + at, from + at, keys);
  if constexpr (kVectors > 1) {
    CopyKeyedRow<Vector, kVectors - 1>(to + kStep, from + kStep, width - kStep, keys);
  }
  StorePixels(to + at, pixels);
}

template <typename Vector, int kVectors>
inline void CopyKeyedRows(Surface to, PictureView from, Pixel key) {
  const Vector keys = Vector{} + key;
  for (int y = 0; y < to.height; ++y) {
    CopyKeyedRow<Vector, kVectors>(to.Row(y), from.Row(y), to.width, keys);
  }
}

/// Whether all pixels of a long run have the key colour.
inline bool IsAllColorKey(const Pixel* from, const PixelVector& keys) {
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

/// The same for rows of at least one long run, which is skipped if it is all key colour.
inline void CopyKeyedRuns(Surface to, PictureView from, Pixel key) {
  const PixelVector keys = PixelVector{} + key;
  const int last = to.width - kLongRun;
  for (int y = 0; y < to.height; ++y) {
    for (int x = 0; x < last + kLongRun; x += kLongRun) {
      const int run = std::min(x, last);
      Pixel* toRun = to.Row(y) + run;
      const Pixel* fromRun = from.Row(y) + run;
      if (IsAllColorKey(fromRun, keys)) continue;
      for (int i = 0; i < kLongRun; i += kPixelsOf<PixelVector>) {
        PixelVector pixels;
        Overlay(pixels, toRun + i, fromRun + i, keys);
        StorePixels(toRun + i, pixels);
      }
    }
  }
}

inline void CopyKeyed(Surface to, PictureView from, Pixel key) {
  static_assert(kLongRun == 4 * kPixelsOf<PixelVector>);
  if (to.width >= kLongRun) {
    CopyKeyedRuns(to, from, key);
  } else if (to.width > 3 * kPixelsOf<PixelVector>) {
    CopyKeyedRows<PixelVector, 4>(to, from, key);
  } else if (to.width > 2 * kPixelsOf<PixelVector>) {
    CopyKeyedRows<PixelVector, 3>(to, from, key);
  } else if (to.width >= kPixelsOf<PixelVector>) {
    CopyKeyedRows<PixelVector, 2>(to, from, key);
  } else if (to.width > kPixelsOf<HalfVector>) {
    CopyKeyedRows<HalfVector, 2>(to, from, key);
  } else if (to.width == kPixelsOf<HalfVector>) {
    CopyKeyedRows<HalfVector, 1>(to, from, key);
  } else {
    for (int x = 0; x < to.width; ++x) {
      const Surface column = {to.pixels + x, 1, to.height, to.stride};
      CopyKeyedRows<Pixel, 1>(column, {from.pixels + x, 1, from.height, from.stride}, key);
    }
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
