#include "tools/CanvasKeyboard.h"

#include "document/MapFiles.h"
#include "palette/FlipAndRotate.h"
#include "tools/ToolModes.h"

namespace morvane {

bool Canvas_KeyDown(Palette& palette, int Key, int Modifiers) {
  switch (Key) {
    case kKeyEscape:
      palette.document.Canvas.MousePointer = Pointer::Cross;
      return true;
    case kKeyRight:
      Rotate_Click(palette);
      return true;
    case kKeyLeft:
      RotateLeft_Click(palette);
      return true;
    case kKeyDown:
      FlipHorizontal_Click(palette);
      return true;
    case kKeyUp:
      FlipVertical_Click(palette);
      return true;
    case kKeyF11:
      mnuFileOpen_Click(palette.document);
      return true;
    case kKeyM:
      if ((Modifiers & kCtrl) == 0) return false;
      WallButton_Click(palette);
      return true;
    default:
      return false;
  }
}

}  // namespace morvane
