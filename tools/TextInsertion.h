#pragma once

#include "document/Document.h"

namespace morvane {

/// Tools > Insert Text: the next press on the map chooses where the text goes.
void mnuToolsInsertText_Click(Document& document);

/// Whether the next press places text.
bool IsTextArmed(const Document& document);

/// The press that places text: asks for the text and draws it on the map, at a position in map
/// pixels.
void PlaceText(Document& document, float X, float Y);

}  // namespace morvane
