#pragma once

#include "document/Document.h"

namespace morvane {

/// Keeps the map as it is now for the next Undo. The first failure in a run is reported.
void TakeSnapshot(Document& document);

}  // namespace morvane
