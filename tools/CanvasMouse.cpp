#include "tools/CanvasMouse.h"

#include "document/Grid.h"
#include "document/Undo.h"
#include "tools/GridSearch.h"
#include "tools/PaintTile.h"
#include "tools/TextInsertion.h"
#include "tools/WallsAndDoors.h"

namespace morvane {
namespace {

/// Paints with the tool of the current mode.
void Paint(Palette& palette, Gesture gesture, int Button, float X, float Y) {
  if (palette.CurrentMode() == Mode::Tile) {
    PaintTile(palette, gesture, Button, X, Y);
  } else {
    PaintEdge(palette, gesture, Button, X, Y);
  }
}

/// The end of every press and every move of a stroke, even of one that changed nothing.
void ClosingSteps(Document& document) {
  document.Canvas.Refresh();
  EnableUndo(document);
}

/// Moves the outline to the cell under the mouse. On a grid line that coordinate doesn't change.
void Hover(Palette& palette, float X, float Y) {
  Outline& Shape1 = palette.Shape1;
  const PictureBox& Canvas = palette.document.Canvas;
  Shape1.Visible = true;
  if (const auto cell = FindCell(X, Canvas.Width())) Shape1.Left = *cell * kCellSize;
  if (const auto cell = FindCell(Y, Canvas.Height())) Shape1.Top = *cell * kCellSize;
}

}  // namespace

void Canvas_MouseDown(Palette& palette, int Button, float X, float Y) {
  HideOutline(palette);
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
