#pragma once

#include <optional>

#include "document/Document.h"
#include "tools/Gesture.h"

namespace morvane {

/// Copies a rectangle of that size from the top left of the source to a place on the map. A press
/// first takes the snapshot for Undo. If there is a colour key, source pixels of that colour are
/// not copied.
void CopyToMap(Document& document, Gesture gesture, int SnapX, int SnapY, Size size,
               const PictureView& source, std::optional<Color> colorKey = {});

}  // namespace morvane
