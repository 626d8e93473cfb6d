#include "tools/PaintTile.h"

#include "document/Grid.h"
#include "tools/Buttons.h"
#include "tools/CopyToMap.h"
#include "tools/GridSearch.h"

namespace morvane {
namespace {

/// Up to these coordinates, a position on a grid line counts as part of the first cell.
constexpr float kLimit = 40;
constexpr float kEraseStrokeLimit = 20;

/// The start of the cell at a mouse coordinate; 0 if there is no cell.
int Snap(float v, int extent) {
  return FindCell(v, extent).value_or(0) * kCellSize;
}

}  // namespace

void PaintTile(Palette& palette, Gesture gesture, int Button, float X, float Y) {
  Document& document = palette.document;
  const int SnapX = Snap(X, document.Canvas.Width());
  const int SnapY = Snap(Y, document.Canvas.Height());
  const bool isErase = Button == kRightButton;
  const float limit = isErase && gesture == Gesture::Stroke ? kEraseStrokeLimit : kLimit;
  if ((X > limit && SnapX == 0) || (Y > limit && SnapY == 0)) return;

  if (Button == kLeftButton) {
    const PictureBox& stamp =
        palette.TileSetSelector.ListIndex == kCustomSet ? palette.Custom : palette.Picture1;
    CopyToMap(document, gesture, SnapX, SnapY, stamp.ScaleSize(), stamp.Image());
  } else if (isErase) {
    CopyToMap(document, gesture, SnapX, SnapY, {palette.Shape1.Width, palette.Shape1.Height},
              document.pbclear.Image());
  }
}

}  // namespace morvane
