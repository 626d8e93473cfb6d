#include "tools/CanvasMouse.h"

#include "document/Grid.h"
#include "document/Undo.h"
#include "tools/EdgePath.h"
#include "tools/GridTests.h"
#include "tools/TextInsertion.h"
#include "tools/TilePath.h"

namespace morvane {
namespace {

/// Paints by the mode.
void Paint(Palette& palette, Gesture gesture, int Button, float X, float Y) {
  if (palette.CurrentMode() == Mode::Tile) {
    TilePath(palette, gesture, Button, X, Y);
  } else {
    EdgePath(palette, gesture, Button, X, Y);
  }
}

/// What ends every press and every stroke, also one that changed nothing.
void ClosingSteps(Document& document) {
  document.Canvas.Refresh();
  EnableUndo(document);
}

/// The outline follows cell by cell; on a grid line an axis keeps its value.
void Hover(Palette& palette, float X, float Y) {
  Outline& Shape1 = palette.Shape1;
  const PictureBox& Canvas = palette.document.Canvas;
  Shape1.Visible = true;
  if (const auto cell = FindCell(X, Canvas.Width())) Shape1.Left = *cell * kCellSize;
  if (const auto cell = FindCell(Y, Canvas.Height())) Shape1.Top = *cell * kCellSize;
}

}  // namespace

void Canvas_MouseDown(Palette& palette, int Button, float X, float Y) {
  palette.Shape1.Visible = false;
  if (IsTextArmed(palette.document)) {
    PlaceText(palette.document, X, Y);
  } else {
    Paint(palette, Gesture::Press, Button, X, Y);
  }
  ClosingSteps(palette.document);
}

void Canvas_MouseMove(Palette& palette, int Button, float X, float Y) {
  if (IsTextArmed(palette.document)) return;
  if (Button != 0) {
    Paint(palette, Gesture::Stroke, Button, X, Y);
    ClosingSteps(palette.document);
  } else if (palette.CurrentMode() == Mode::Tile) {
    Hover(palette, X, Y);
  }
}

void HideOutline(Palette& palette) {
  palette.Shape1.Visible = false;
}

}  // namespace morvane
