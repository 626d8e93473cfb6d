#pragma once

#include <optional>

#include "document/picture/Rect.h"
#include "palette/Catalogue.h"

namespace morvane {

/// One side of a cell: a grid index, and the cell along it.
struct CellSide {
  Direction direction;
  int index;  ///< of the grid line across; 0 is the edge of the map
  int cell;
};

/// The cell of a pointer coordinate on one axis of a map of that extent. There is none on a grid
/// line.
std::optional<int> FindCell(float v, int extent);

/// The cell side near a pointer position: close to one grid line and well inside the cell along it.
/// There is none near a crossing or inside a cell.
std::optional<CellSide> FindCellSide(float X, float Y, Size map);

}  // namespace morvane
