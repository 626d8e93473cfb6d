#pragma once

#include <optional>

#include "document/picture/Rect.h"
#include "palette/Catalogue.h"

namespace morvane {

/// The cell of a pointer coordinate, from 0 up to extent / kCellSize; none on a grid line.
std::optional<int> FindCell(float v, int extent);
/// The grid index that a pointer coordinate is near to.
std::optional<int> FindLine(float v, int extent);
/// The cell that a pointer coordinate lies well inside of, clear of both its sides.
std::optional<int> FindBody(float v, int extent);

/// One side of a cell: a grid index, and the cell along it.
struct CellSide {
  Direction direction;
  int index;  ///< of the grid line across; 0 is the edge of the map
  int cell;
};

/// The cell side near a pointer position: close to one grid line and well inside the cell along it.
/// There is none near a crossing or inside a cell.
std::optional<CellSide> FindCellSide(float X, float Y, Size map);

}  // namespace morvane
