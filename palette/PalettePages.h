#pragma once

#include "palette/Palette.h"

namespace morvane {

/// A tile set was chosen, by the user or by the program.
void TileSetSelector_Click(Palette& palette, int ListIndex);

/// A tab of the set's tab strip was chosen; tabs count from 1.
void TabStrip_Click(Palette& palette, int set, int tab);

/// The current page of a built-in set, from 1.
int CurrentPage(const Palette& palette, int set);

/// Whether the palette shows that page.
bool IsPageVisible(const Palette& palette, int set, int page);

}  // namespace morvane
