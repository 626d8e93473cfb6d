#pragma once

#include <string>
#include <vector>

namespace morvane {

/// Sorts names as people read them: case doesn't count, and numbers count as numbers.
void SortNaturally(std::vector<std::string>& names);

}  // namespace morvane
