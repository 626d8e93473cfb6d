#include "tools/ToolModes.h"

namespace morvane {

void WallButton_Click(Palette& palette) {
  std::string& status = palette.document.StatusText;
  if (palette.WallMode) {
    palette.WallMode = false;
    palette.DoorMode = true;
    palette.Shape1.Visible = false;
    status = palette.TileSetSelector.ListIndex == kClassicVillage
                 ? "Door Mode selected"
                 : "Door Mode selected - left mouse button for normal doors, right mouse button "
                   "for secret doors";
  } else if (palette.DoorMode) {
    palette.DoorMode = false;
    palette.Shape1.Visible = true;
    status = "Tile Mode selected";
  } else {
    palette.WallMode = true;
    palette.Shape1.Visible = false;
    status = "Wall Mode selected";
  }
}

}  // namespace morvane
