#pragma once

#include <string>

#include "document/Document.h"

namespace morvane {

/// Saves the map under a new name in the first folder that takes it. Returns the path, or an empty
/// text if no folder does.
std::string WriteRescueCopy(Document& document);

}  // namespace morvane
