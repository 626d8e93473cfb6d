#pragma once

#include <optional>

#include "document/Document.h"
#include "tools/Gesture.h"

namespace morvane {

/// Copies a rectangle of pixels from the top left of a source onto the map. A press takes the
/// snapshot for Undo first. Source pixels of the colour key, if there is one, are left out.
void CopyToMap(Document& document, Gesture gesture, int SnapX, int SnapY, Size size,
               const PictureView& source, std::optional<Color> transparent = {});

}  // namespace morvane
