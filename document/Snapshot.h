#pragma once

#include "document/Document.h"

namespace morvane {

/// Keeps the map as it is now for the next Undo. A map that can't be kept is told once in a run.
void TakeSnapshot(Document& document);

}  // namespace morvane
