#pragma once

#include "palette/Palette.h"

namespace morvane {

/// Makes the picture of an item the stamp; changes nothing else.
void ShowStamp(Palette& palette, const Item& item);

/// A click on an item makes it the current stamp and returns to Tile mode.
void Item_Click(Palette& palette, const Item& item);

}  // namespace morvane
