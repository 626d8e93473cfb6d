#include "tools/TilePath.h"

#include "document/Blit.h"
#include "document/Grid.h"
#include "document/Snapshot.h"
#include "tools/Buttons.h"
#include "tools/GridTests.h"

namespace morvane {
namespace {

/// A press on one of the first grid lines of an axis still lands in its first cell.
constexpr float kPressLimit = 40;

/// The corner of a copy on one axis; 0 where the pointer is in no cell.
int Snap(float v, int extent) {
  return FindCell(v, extent).value_or(0) * kCellSize;
}

bool IsAccepted(float v, int snap) {
  return v <= kPressLimit || snap != 0;
}

void Place(Document& document, int SnapX, int SnapY, Size size, const PictureView& source) {
  TakeSnapshot(document);
  BitBlt(document.Canvas.hDC(), SnapX, SnapY, size.width, size.height, source, 0, 0);
}

}  // namespace

void TilePath(Palette& palette, int Button, float X, float Y) {
  Document& document = palette.document;
  const int SnapX = Snap(X, document.Canvas.Width());
  const int SnapY = Snap(Y, document.Canvas.Height());
  if (!IsAccepted(X, SnapX) || !IsAccepted(Y, SnapY)) return;

  if (Button == kLeftButton) {
    const PictureBox& stamp =
        palette.TileSetSelector.ListIndex == kCustomSet ? palette.Custom : palette.Picture1;
    Place(document, SnapX, SnapY, {stamp.ScaleWidth(), stamp.ScaleHeight()}, stamp.Image());
  } else if (Button == kRightButton) {
    Place(document, SnapX, SnapY, {palette.Shape1.Width, palette.Shape1.Height},
          document.pbclear.Image());
  }
}

}  // namespace morvane
