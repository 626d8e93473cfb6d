#include "tools/CanvasMouse.h"

#include "document/Undo.h"
#include "tools/TilePath.h"

namespace morvane {
namespace {

/// What ends every press, also one that changed nothing.
void ClosingSteps(Document& document) {
  document.Canvas.Refresh();
  EnableUndo(document);
}

}  // namespace

void Canvas_MouseDown(Palette& palette, int Button, float X, float Y) {
  palette.Shape1.Visible = false;
  TilePath(palette, Button, X, Y);
  ClosingSteps(palette.document);
}

void HideOutline(Palette& palette) {
  palette.Shape1.Visible = false;
}

}  // namespace morvane
