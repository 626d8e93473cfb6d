#include <algorithm>
#include <array>
#include <cstdint>

#include "document/picture/Blit.h"
#include "document/picture/PixelVector.h"

namespace morvane {
namespace {

/// Walks along one axis of a scaled copy: for each target pixel the source pixel that lies nearest
/// to its middle. The remainder is carried along, so that a step needs no division.
class NearestWalk {
 public:
  NearestWalk(int at, int size, int sourceSize)
      : whole_(std::int64_t{size} * 2),
        index_(Start(at, sourceSize) / whole_),
        rest_(Start(at, sourceSize) % whole_),
        indexStep_(std::int64_t{sourceSize} * 2 / whole_),
        restStep_(std::int64_t{sourceSize} * 2 % whole_) {}

  int Index() const { return static_cast<int>(index_); }
  void Step() {
    rest_ += restStep_;
    const bool carries = rest_ >= whole_;
    rest_ -= carries ? whole_ : 0;
    index_ += indexStep_ + (carries ? 1 : 0);
  }

 private:
  static std::int64_t Start(int at, int sourceSize) {
    return (std::int64_t{at} * 2 + 1) * sourceSize;
  }

  std::int64_t whole_;
  std::int64_t index_;
  std::int64_t rest_;
  std::int64_t indexStep_;
  std::int64_t restStep_;
};

/// The largest number of columns that are scaled at once.
constexpr int kColumns = 1024;

/// Columns of a scaled copy, in runs that take the same source pixel.
struct ColumnRuns {
  struct Run {
    int source;
    int end;  ///< the column after the run
  };
  std::array<Run, kColumns> runs;
  std::size_t count = 0;

  ColumnRuns(int columns, NearestWalk walk) {
    for (int column = 0; column < columns; ++column, walk.Step()) {
      const bool goesOn = count > 0 && runs[count - 1].source == walk.Index();
      if (!goesOn) runs[count++].source = walk.Index();
      runs[count - 1].end = column + 1;
    }
  }
};

void PickPixels(Pixel* to, const Pixel* from, const ColumnRuns& columns) {
  for (std::size_t i = 0; i < columns.count; ++i) to[i] = from[columns.runs[i].source];
}

MORVANE_WIDE void RepeatPixels(Pixel* to, const Pixel* from, const ColumnRuns& columns, int width) {
  constexpr int kStep = kPixelsOf<PixelVector>;
  int at = 0;
  for (std::size_t i = 0; i < columns.count; ++i) {
    const ColumnRuns::Run run = columns.runs[i];
    const Pixel pixel = from[run.source];
    // What a vector writes beyond its run is overwritten by the next run.
    for (; at < run.end && at <= width - kStep; at += kStep) {
      StorePixels(to + at, PixelVector{} + pixel);
    }
    for (; at < run.end; ++at) to[at] = pixel;
    at = run.end;
  }
}

void ScaleRow(Pixel* to, const Pixel* from, const ColumnRuns& columns, int width) {
  const bool repeats = columns.count < static_cast<std::size_t>(width);
  repeats ? RepeatPixels(to, from, columns, width) : PickPixels(to, from, columns);
}

}  // namespace

void StretchBlt(const Surface& target, int x, int y, int width, int height,
                const PictureView& source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight) {
  const Rect rect = Rect{x, y, x + width, y + height}.Intersected(target.Bounds());
  const Rect from = Rect{sourceX, sourceY, sourceX + sourceWidth, sourceY + sourceHeight};
  if (rect.IsEmpty() || from.IsEmpty() || from != from.Intersected(source.Bounds())) return;
  for (int left = rect.left; left < rect.right; left += kColumns) {
    const int count = std::min(kColumns, rect.right - left);
    const ColumnRuns columns(count, {left - x, width, sourceWidth});
    NearestWalk walk(rect.top - y, height, sourceHeight);
    int drawn = -1;
    for (int row = rect.top; row < rect.bottom; ++row, walk.Step()) {
      Pixel* to = target.Row(row) + left;
      if (walk.Index() == drawn) {
        std::copy_n(to - target.stride, count, to);
      } else {
        ScaleRow(to, source.Row(sourceY + walk.Index()) + sourceX, columns, count);
      }
      drawn = walk.Index();
    }
  }
  target.NoteDamage(rect);
}

}  // namespace morvane
