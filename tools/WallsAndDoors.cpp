#include "tools/WallsAndDoors.h"

#include <utility>

#include "document/Grid.h"
#include "document/picture/Blit.h"
#include "tools/Buttons.h"
#include "tools/CopyToMap.h"
#include "tools/GridSearch.h"

namespace morvane {
namespace {

/// The place of a vertical picture relative to the start of its cell, and the part of it that is
/// copied. For a horizontal picture the axes are exchanged.
struct Offsets {
  int across;
  int along;
  Size size;
};

constexpr Offsets kWallOffsets = {-2, -1, {4, 22}};
constexpr Offsets kDoorOffsets = {-3, 2, {6, 16}};

Edge EdgeOf(const Palette& palette, int Button) {
  if (palette.WallMode) return Edge::Wall;
  return Button == kLeftButton ? Edge::Door : Edge::SecretDoor;
}

/// The colour key of a fence: the colour of a pixel in a gap between its posts.
Color FenceColorKey(const PictureView& fence, Direction direction) {
  return direction == Direction::Vertical ? GetPixel(fence, 0, 4) : GetPixel(fence, 4, 0);
}

}  // namespace

void PaintEdge(Palette& palette, Gesture gesture, int Button, float X, float Y) {
  if (palette.WallMode && Button != kLeftButton) return;
  Document& document = palette.document;
  const Size map = document.Canvas.ScaleSize();
  const std::optional<CellSide> side = FindCellSide(X, Y, map);
  if (!side) return;
  const int set = palette.TileSetSelector.ListIndex;
  const Edge edge = EdgeOf(palette, Button);
  const Picture* picture = palette.pictures.Of(set, edge, side->direction);
  if (picture == nullptr) return;

  const Offsets& offsets = edge == Edge::Wall ? kWallOffsets : kDoorOffsets;
  int SnapX = side->index * kCellSize + offsets.across;
  int SnapY = side->cell * kCellSize + offsets.along;
  Size size = offsets.size;
  if (side->direction == Direction::Horizontal) {
    std::swap(SnapX, SnapY);
    std::swap(size.width, size.height);
  }
  std::optional<Color> colorKey;
  if (set == kClassicVillage && edge == Edge::Wall) {
    colorKey = FenceColorKey(picture->View(), side->direction);
  }
  CopyToMap(document, gesture, SnapX, SnapY, size, picture->View(), colorKey);
}

}  // namespace morvane
