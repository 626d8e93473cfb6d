#pragma once

#include "document/Document.h"

namespace morvane {

/// File > New: asks for confirmation, then creates a blank map with the colours in the settings.
void mnuFileNew_Click(Document& document);

/// Whether a map shows nothing but one colour, with or without the grid of a new map.
bool IsBlankMap(const PictureView& map);

}  // namespace morvane
