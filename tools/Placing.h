#pragma once

#include "document/Document.h"
#include "tools/Gesture.h"

namespace morvane {

/// Copies a rectangle of pixels onto the map, from the top left of a source; a press keeps the map
/// for Undo directly before. With a colour given, the source's pixels of that colour are left out.
void Place(Document& document, Gesture gesture, int SnapX, int SnapY, Size size,
           const PictureView& source, const Color* transparent = nullptr);

}  // namespace morvane
