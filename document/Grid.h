#pragma once

namespace morvane {

/// Side of a cell in pixels; cell i of an axis starts at pixel kCellSize * i.
inline constexpr int kCellSize = 20;

/// The pixel column or row of grid line i, counted from 1: the last one of the cell before it.
constexpr int GridLine(int i) {
  return kCellSize * i - 1;
}

}  // namespace morvane
