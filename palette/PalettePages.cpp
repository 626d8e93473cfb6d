#include "palette/PalettePages.h"

namespace morvane {
namespace {

/// Where each set stores its current page; null if it has only one.
constexpr std::array<int Palette::*, kBuiltInSets> kPageVariables = {
    &Palette::CurFrame1, &Palette::CurFrame3, nullptr, &Palette::CurFrame4};

}  // namespace

void TileSetSelector_Click(Palette& palette, int ListIndex) {
  palette.TileSetSelector.ListIndex = ListIndex;
  if (ListIndex != kCustomSet) return;
  palette.Custom.SetPictureAndSize(palette.Picture1Picture);
  palette.File1.Refresh();
}

void TabStrip_Click(Palette& palette, int set, int tab) {
  if (kPageVariables[set] != nullptr) palette.*kPageVariables[set] = tab;
}

int CurrentPage(const Palette& palette, int set) {
  return kPageVariables[set] == nullptr ? 1 : palette.*kPageVariables[set];
}

bool IsPageVisible(const Palette& palette, int set, int page) {
  return palette.TileSetSelector.ListIndex == set && CurrentPage(palette, set) == page;
}

}  // namespace morvane
