#include "tools/GridTests.h"

#include <cmath>

#include "document/Grid.h"

namespace morvane {
namespace {

/// How far the band around a grid index reaches to either side.
constexpr int kBand = 3;

/// The grid index k for which v lies between 20 k + from and 20 k + to, on neither of them. At most
/// one index can match, and a division finds it.
std::optional<int> Find(float v, int from, int to, int extent) {
  const int k = static_cast<int>(std::floor((v - static_cast<float>(from)) / kCellSize));
  const bool matches =
      v > static_cast<float>(kCellSize * k + from) && v < static_cast<float>(kCellSize * k + to);
  if (k < 0 || k > extent / kCellSize || !matches) return std::nullopt;
  return k;
}

}  // namespace

std::optional<int> FindCell(float v, int extent) {
  return Find(v, GridLine(0), GridLine(1), extent);
}

std::optional<int> FindLine(float v, int extent) {
  return Find(v, -kBand, kBand, extent);
}

std::optional<int> FindBody(float v, int extent) {
  return Find(v, kBand, kCellSize - kBand, extent);
}

std::optional<CellSide> FindCellSide(float X, float Y, Size map) {
  const std::optional<int> bodyX = FindBody(X, map.width);
  const std::optional<int> bodyY = FindBody(Y, map.height);
  const std::optional<int> lineX = FindLine(X, map.width);
  if (lineX && bodyY) return CellSide{Direction::Vertical, *lineX, *bodyY};
  const std::optional<int> lineY = FindLine(Y, map.height);
  if (lineY && bodyX) return CellSide{Direction::Horizontal, *lineY, *bodyX};
  return std::nullopt;
}

}  // namespace morvane
