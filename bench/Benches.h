#pragma once

#include "bench/RatioTable.h"

namespace morvane::bench {

void AddCopies(RatioTable& table);
void AddTransparentCopies(RatioTable& table);
void AddScaling(RatioTable& table);
void AddTurns(RatioTable& table);
void AddSnapshots(RatioTable& table);
void AddSaving(RatioTable& table);
void AddPresses(RatioTable& table);
void AddWindow(RatioTable& table);
void AddFolders(RatioTable& table);
void AddMemory(RatioTable& table);

}  // namespace morvane::bench
