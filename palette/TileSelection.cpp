#include "palette/TileSelection.h"

namespace morvane {
namespace {

void EnterTileMode(Palette& palette) {
  palette.Shape1.Width = palette.Picture1.Width();
  palette.Shape1.Height = palette.Picture1.Height();
  palette.WallMode = false;
  palette.DoorMode = false;
  palette.document.StatusText = palette.Label2 + " tile selected";
  palette.Label5.clear();
  palette.document.Canvas.SetFocus();
}

}  // namespace

void Item_Click(Palette& palette, const Item& item) {
  const Size stamp = StampSize(item);
  palette.Label2 = item.caption;
  palette.Picture1.SetPicture(palette.pictures.Of(item));
  palette.Picture1.SetWidth(stamp.width);
  palette.Picture1.SetHeight(stamp.height);
  EnterTileMode(palette);
}

}  // namespace morvane
