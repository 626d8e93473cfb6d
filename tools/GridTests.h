#pragma once

#include <optional>

namespace morvane {

/// Whether a pointer coordinate lies between the two grid lines of cell k, on neither of them.
bool CellTest(float v, int k);

/// Whether a pointer coordinate is near grid index k.
bool LineTest(float v, int k);

/// Whether a pointer coordinate lies well inside cell k, clear of both its sides.
bool BodyTest(float v, int k);

/// The index from 0 up to extent / kCellSize for which the test holds; at most one does.
std::optional<int> FindCell(float v, int extent);
std::optional<int> FindLine(float v, int extent);
std::optional<int> FindBody(float v, int extent);

}  // namespace morvane
