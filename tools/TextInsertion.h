#pragma once

#include "document/Document.h"

namespace morvane {

/// Tools > Insert Text: the next press on the map tells where text goes.
void mnuToolsInsertText_Click(Document& document);

/// Whether the next press places text.
bool IsTextArmed(const Document& document);

/// A press with text armed: asks for the text and merges it into the map at that place.
void PlaceText(Document& document, float X, float Y);

}  // namespace morvane
