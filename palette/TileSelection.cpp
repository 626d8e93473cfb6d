#include "palette/TileSelection.h"

namespace morvane {

void ShowStamp(Palette& palette, const Item& item) {
  palette.Label2 = item.caption;
  palette.SetPicture1(palette.pictures.Of(item), StampSize(item));
}

void Item_Click(Palette& palette, const Item& item) {
  ShowStamp(palette, item);
  palette.Shape1.SetSize(StampSize(item));
  palette.SwitchToTileMode();
  palette.document.StatusText = palette.Label2 + " tile selected";
  palette.Label5.clear();
  palette.document.Canvas.SetFocus();
}

}  // namespace morvane
