#pragma once

#include "palette/Palette.h"

namespace morvane {

/// Makes an item the stamp and shows its name, without the other effects of a click.
void ShowStamp(Palette& palette, const Item& item);

/// A click on an item makes it the current stamp and returns to Tile mode.
void Item_Click(Palette& palette, const Item& item);

}  // namespace morvane
