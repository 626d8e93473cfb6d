#include "tools/GridTests.h"

#include <cmath>

#include "document/Grid.h"

namespace morvane {

bool CellTest(float v, int k) {
  return v > static_cast<float>(GridLine(k)) && v < static_cast<float>(GridLine(k + 1));
}

std::optional<int> FindCell(float v, int extent) {
  const int k = static_cast<int>(std::floor((v + 1) / kCellSize));
  if (k < 0 || k > extent / kCellSize || !CellTest(v, k)) return std::nullopt;
  return k;
}

}  // namespace morvane
