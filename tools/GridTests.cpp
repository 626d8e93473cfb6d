#include "tools/GridTests.h"

#include <cmath>

#include "document/Grid.h"

namespace morvane {
namespace {

/// How far the band around a grid index reaches to either side.
constexpr int kBand = 3;

using Test = bool (*)(float, int);

/// At most one index can match, and a division finds it.
std::optional<int> Find(Test test, float v, int shift, int extent) {
  const int k = static_cast<int>(std::floor((v + static_cast<float>(shift)) / kCellSize));
  if (k < 0 || k > extent / kCellSize || !test(v, k)) return std::nullopt;
  return k;
}

}  // namespace

bool CellTest(float v, int k) {
  return v > static_cast<float>(GridLine(k)) && v < static_cast<float>(GridLine(k + 1));
}

bool LineTest(float v, int k) {
  return v > static_cast<float>(kCellSize * k - kBand) &&
         v < static_cast<float>(kCellSize * k + kBand);
}

bool BodyTest(float v, int k) {
  return v > static_cast<float>(kCellSize * k + kBand) &&
         v < static_cast<float>(kCellSize * (k + 1) - kBand);
}

std::optional<int> FindCell(float v, int extent) {
  return Find(&CellTest, v, 1, extent);
}
std::optional<int> FindLine(float v, int extent) {
  return Find(&LineTest, v, kBand, extent);
}
std::optional<int> FindBody(float v, int extent) {
  return Find(&BodyTest, v, 0, extent);
}

}  // namespace morvane
