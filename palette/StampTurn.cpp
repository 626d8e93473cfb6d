#include "palette/StampTurn.h"

#include "document/Transform.h"

namespace morvane {
namespace {

/// Turns what the box shows, and lets the outline take the box's size.
void TurnBox(PictureBox& box, Transform transform, Outline& Shape1) {
  PictureView shown = box.Image();
  shown.width = box.ScaleWidth();
  shown.height = box.ScaleHeight();
  box.SetPictureAndSize(Transformed(shown, transform));
  Shape1.Width = box.ScaleWidth();
  Shape1.Height = box.ScaleHeight();
}

void Turn(Palette& palette, Transform transform, const char* done) {
  TurnBox(palette.Picture1, transform, palette.Shape1);
  if (palette.TileSetSelector.ListIndex == kCustomSet) {
    TurnBox(palette.Custom, transform, palette.Shape1);
  }
  palette.WallMode = false;
  palette.DoorMode = false;
  palette.document.StatusText = palette.Label2 + done;
}

constexpr const char* kFlipped = " tile flipped";
constexpr const char* kRotated = " tile rotated";

}  // namespace

void FlipHorizontal_Click(Palette& palette) {
  Turn(palette, Transform::FlipHorizontal, kFlipped);
}
void FlipVertical_Click(Palette& palette) {
  Turn(palette, Transform::FlipVertical, kFlipped);
}
void Rotate_Click(Palette& palette) {
  Turn(palette, Transform::RotateRight, kRotated);
}
void RotateLeft_Click(Palette& palette) {
  Turn(palette, Transform::RotateLeft, kRotated);
}

}  // namespace morvane
