#pragma once

#include "document/Document.h"

namespace morvane {

/// File > New: paints background and grid from the settings, after a question.
void mnuFileNew_Click(Document& document);

/// Whether a map shows nothing but one colour, with or without the grid of a new map.
bool IsBlankMap(const PictureView& map);

}  // namespace morvane
