#pragma once

#include "document/Document.h"

namespace morvane {

/// Keeps the map as it is now for the next Undo. The first failure in a run is reported.
void TakeSnapshot(Document& document);

/// Enables the tool bar button and the menu entry.
void EnableUndo(Document& document);

/// Edit > Undo: brings the last snapshot back.
void mnuEditUndo_Click(Document& document);

}  // namespace morvane
