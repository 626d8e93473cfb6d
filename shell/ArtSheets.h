#pragma once

#include <QIcon>
#include <QPixmap>
#include <string>

#include "document/picture/Picture.h"

namespace morvane {

/// One art sheet of the tile sets by its name, such as "grave-dungeon/furniture".
Picture LoadArtSheet(const std::string& name);

/// A picture of the user interface, with its version for high-DPI displays.
QIcon LoadIcon(const char* name);

/// One of the large pictures, in the resolution of the display.
QPixmap LoadPhoto(const char* name, double devicePixelRatio);

}  // namespace morvane
