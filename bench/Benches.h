#pragma once

#include "bench/RatioTable.h"

namespace morvane::bench {

/// Each function registers the benchmarks of one group and adds their rows to the table.
void AddCopies(RatioTable& table);
void AddTransforms(RatioTable& table);
void AddFiles(RatioTable& table);
void AddPresses(RatioTable& table);
void AddWindow(RatioTable& table);
void AddFolders(RatioTable& table);
void AddMemory(RatioTable& table);

}  // namespace morvane::bench
