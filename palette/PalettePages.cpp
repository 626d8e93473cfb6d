#include "palette/PalettePages.h"

namespace morvane {

void TileSetSelector_Click(Palette& palette, int ListIndex) {
  palette.TileSetSelector.ListIndex = ListIndex;
  if (ListIndex != kCustomSet) return;
  palette.Custom.SetPictureAndSize(palette.Picture1.GetPicture());
  palette.File1.Refresh(palette.document.platform);
}

void TabStrip_Click(Palette& palette, int set, int tab) {
  switch (set) {
    case kAbandonedCathedral:
      palette.CurFrame1 = tab;
      break;
    case kGraveDungeon:
      palette.CurFrame3 = tab;
      break;
    case kClassicVillage:
      palette.CurFrame4 = tab;
      break;
    default:
      break;
  }
}

int CurrentPage(const Palette& palette, int set) {
  switch (set) {
    case kAbandonedCathedral:
      return palette.CurFrame1;
    case kGraveDungeon:
      return palette.CurFrame3;
    case kClassicVillage:
      return palette.CurFrame4;
    default:
      return 1;
  }
}

bool IsPageVisible(const Palette& palette, int set, int page) {
  return palette.TileSetSelector.ListIndex == set && CurrentPage(palette, set) == page;
}

}  // namespace morvane
