#pragma once

#include "bench/RatioTable.h"

namespace morvane::bench {

void AddCopies(RatioTable& table);
void AddSeeThroughCopies(RatioTable& table);
void AddScaling(RatioTable& table);
void AddTurns(RatioTable& table);

}  // namespace morvane::bench
