#include "tools/GridSearch.h"

#include <cmath>

#include "document/Grid.h"

namespace morvane {
namespace {

/// A coordinate is near a grid line if it is less than this many pixels from the start of a cell.
constexpr int kBand = 3;

/// The index k in the map for which above < v - kCellSize * k < below.
std::optional<int> Find(float v, int above, int below, int extent) {
  const int k = static_cast<int>(std::floor((v - static_cast<float>(above)) / kCellSize));
  const float distance = v - static_cast<float>(kCellSize * k);
  const bool isBetween =
      distance > static_cast<float>(above) && distance < static_cast<float>(below);
  if (k < 0 || k > extent / kCellSize || !isBetween) return std::nullopt;
  return k;
}

/// The grid line near a coordinate.
std::optional<int> FindLine(float v, int extent) {
  return Find(v, -kBand, kBand, extent);
}

/// The cell of a coordinate that isn't near a grid line.
std::optional<int> FindBody(float v, int extent) {
  return Find(v, kBand, kCellSize - kBand, extent);
}

}  // namespace

std::optional<int> FindCell(float v, int extent) {
  return Find(v, GridLine(0), GridLine(1), extent);
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
