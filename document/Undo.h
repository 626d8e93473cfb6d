#pragma once

#include "document/Document.h"

namespace morvane {

/// Saves the map as it is now for the next Undo. Only the first failure in a run is reported.
void TakeSnapshot(Document& document);

/// Enables the tool bar button and the menu entry of Undo.
void EnableUndo(Document& document);

/// Edit > Undo: restores the last snapshot.
void mnuEditUndo_Click(Document& document);

}  // namespace morvane
