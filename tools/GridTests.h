#pragma once

#include <optional>

namespace morvane {

/// Whether a pointer coordinate lies between the two grid lines of cell k, in neither of them.
bool CellTest(float v, int k);

/// The cell of a pointer coordinate, searched from 0 up to extent / kCellSize. A coordinate on a
/// grid line or outside the range has none.
std::optional<int> FindCell(float v, int extent);

}  // namespace morvane
