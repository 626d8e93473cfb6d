#pragma once

#include <string>

#include "document/Document.h"
#include "palette/FileList.h"
#include "palette/TilePictures.h"

namespace morvane {

/// The outline of the area that the stamp would cover, in map pixels.
struct Outline {
  int Left = 0;
  int Top = 0;
  int Width = 20;
  int Height = 20;
  bool Visible = false;

  void SetSize(Size size) {
    Width = size.width;
    Height = size.height;
  }
  friend bool operator==(const Outline&, const Outline&) = default;
};

/// What the mouse paints. The mode button shows it.
enum class Mode { Tile, Wall, Door };

/// The palette on the left and the current stamp.
struct Palette {
  Palette(Document& theDocument, const TilePictures::SheetLoader& loadSheet)
      : document(theDocument), pictures(loadSheet) {}

  Document& document;
  TilePictures pictures;

  /// The chosen tile set. The combo box of that name keeps no copy.
  struct {
    int ListIndex = kAbandonedCathedral;
  } TileSetSelector;
  /// The current page of the sets that have several.
  int CurFrame1 = 1;
  int CurFrame3 = 1;
  int CurFrame4 = 1;
  FolderList Dir1;
  FileList File1;

  PictureBox Picture1{60, 60, PictureBox::Border::None};  ///< the stamp
  /// The picture last assigned to Picture1; a reduced preview is drawn, not assigned.
  Picture Picture1Picture;
  PictureBox Custom{20, 20, PictureBox::Border::None};  ///< the stamp while the set is "Custom"
  Outline Shape1;
  std::string Label2;  ///< name of the current tile
  std::string Label5;  ///< dimensions of a custom tile

  bool WallMode = false;
  bool DoorMode = false;

  Mode CurrentMode() const {
    if (WallMode) return Mode::Wall;
    return DoorMode ? Mode::Door : Mode::Tile;
  }
  void SwitchToTileMode() { WallMode = DoorMode = false; }
  /// Assigns a picture to the stamp, which shows and paints its top left part of that size.
  void SetPicture1(const Picture& picture, Size size) {
    Picture1Picture = picture;
    Picture1.SetPicture(picture);
    Picture1.SetSize(size);
  }
};

}  // namespace morvane
