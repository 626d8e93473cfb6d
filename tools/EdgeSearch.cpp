#include "tools/EdgeSearch.h"

#include "tools/GridTests.h"

namespace morvane {

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
