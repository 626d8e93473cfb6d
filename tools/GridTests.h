#pragma once

#include <optional>

namespace morvane {

/// The cell of a pointer coordinate, from 0 up to extent / kCellSize; none on a grid line.
std::optional<int> FindCell(float v, int extent);
/// The grid index that a pointer coordinate is near to.
std::optional<int> FindLine(float v, int extent);
/// The cell that a pointer coordinate lies well inside of, clear of both its sides.
std::optional<int> FindBody(float v, int extent);

}  // namespace morvane
