#include "palette/PalettePages.h"

namespace morvane {
namespace {

/// Where a set stores its current page; null if it has only one.
template <typename AnyPalette>
auto* PageVariable(AnyPalette& palette, int set) {
  switch (set) {
    case kAbandonedCathedral:
      return &palette.CurFrame1;
    case kGraveDungeon:
      return &palette.CurFrame3;
    case kClassicVillage:
      return &palette.CurFrame4;
    default:
      return static_cast<decltype(&palette.CurFrame1)>(nullptr);
  }
}

}  // namespace

void TileSetSelector_Click(Palette& palette, int ListIndex) {
  palette.TileSetSelector.ListIndex = ListIndex;
  if (ListIndex != kCustomSet) return;
  palette.Custom.SetPictureAndSize(palette.Picture1Picture);
  palette.File1.Refresh();
}

void TabStrip_Click(Palette& palette, int set, int tab) {
  if (int* page = PageVariable(palette, set)) *page = tab;
}

int CurrentPage(const Palette& palette, int set) {
  const int* page = PageVariable(palette, set);
  return page == nullptr ? 1 : *page;
}

bool IsPageVisible(const Palette& palette, int set, int page) {
  return palette.TileSetSelector.ListIndex == set && CurrentPage(palette, set) == page;
}

}  // namespace morvane
