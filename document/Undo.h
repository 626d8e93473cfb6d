#pragma once

#include "document/Document.h"

namespace morvane {

/// Enables the tool bar button and the menu entry.
void EnableUndo(Document& document);

/// Edit > Undo: brings the last snapshot back.
void mnuEditUndo_Click(Document& document);

}  // namespace morvane
