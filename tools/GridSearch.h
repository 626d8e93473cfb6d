#pragma once

#include <optional>

#include "document/picture/Rect.h"
#include "palette/Catalogue.h"

namespace morvane {

/// One side of a cell.
struct CellSide {
  Direction direction;  ///< of the grid line on which the side lies
  int index;            ///< of that line; 0 is the edge of the map
  int cell;             ///< index of the cell along the line
};

/// The index of the cell at a mouse coordinate, along one axis of a map of that extent in pixels.
/// There is none on a grid line.
std::optional<int> FindCell(float v, int extent);

/// The cell side at a mouse position that is close to a grid line. There is none near a crossing of
/// two lines and in the middle of a cell.
std::optional<CellSide> FindCellSide(float X, float Y, Size map);

}  // namespace morvane
