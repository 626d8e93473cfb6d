#pragma once

#include <string>
#include <string_view>

#include "document/Document.h"
#include "palette/FileList.h"
#include "palette/TilePictures.h"

namespace morvane {

/// The outline that shows the footprint of the stamp on the map, in pixels of the canvas.
struct Outline {
  int Left = 0;
  int Top = 0;
  int Width = 20;
  int Height = 20;
  bool Visible = false;
};

/// The palette on the left side and the current stamp.
struct Palette {
  Palette(Document& theDocument, const TilePictures::SheetLoader& loadSheet)
      : document(theDocument), pictures(loadSheet) {}

  Document& document;
  TilePictures pictures;

  /// Which set is chosen: the only record of it.
  struct {
    int ListIndex = kAbandonedCathedral;
  } TileSetSelector;
  /// The current page of the sets that have several.
  int CurFrame1 = 1;
  int CurFrame3 = 1;
  int CurFrame4 = 1;
  FileList File1;

  PictureBox Picture1{60, 60, PictureBox::Border::None};  ///< the stamp
  PictureBox Custom{20, 20, PictureBox::Border::None};    ///< the stamp while the set is "Custom"
  Outline Shape1;
  std::string Label2;  ///< name of the current tile
  std::string Label5;  ///< dimensions of a custom tile

  /// The tool mode; Tile mode is both false.
  bool WallMode = false;
  bool DoorMode = false;

  /// Caption of lbMode, after which the face of WallButton goes too.
  std::string_view ModeCaption() const {
    if (WallMode) return "Wall";
    return DoorMode ? "Door" : "Tile";
  }
};

}  // namespace morvane
