#include "tools/CanvasKeyboard.h"

#include "document/MapFiles.h"
#include "palette/FlipAndRotate.h"
#include "tools/ToolModes.h"

namespace morvane {

bool Canvas_KeyDown(Palette& palette, int Key, int Modifiers) {
  if (Key == kKeyEscape) {
    palette.document.Canvas.MousePointer = Pointer::Cross;
  } else if (Key == kKeyRight) {
    Rotate_Click(palette);
  } else if (Key == kKeyLeft) {
    RotateLeft_Click(palette);
  } else if (Key == kKeyDown) {
    FlipHorizontal_Click(palette);
  } else if (Key == kKeyUp) {
    FlipVertical_Click(palette);
  } else if (Key == kKeyF11) {
    mnuFileOpen_Click(palette.document);
  } else if (Key == kKeyM && (Modifiers & kCtrl) != 0) {
    WallButton_Click(palette);
  } else {
    return false;
  }
  return true;
}

}  // namespace morvane
