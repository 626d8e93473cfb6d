#include "palette/FlipAndRotate.h"

#include "document/picture/Transform.h"

namespace morvane {
namespace {

/// The picture that the box shows, flipped or turned.
Picture TurnedImage(const PictureBox& box, Transform transform) {
  return Transformed(box.Image().Cropped(box.ScaleSize()), transform);
}

/// The picture of a custom tile may be large, so it is mirrored in place.
void TurnCustom(PictureBox& Custom, Transform transform) {
  if (IsFlip(transform)) {
    FlipInPlace(Custom.hDC(), transform);
  } else {
    Custom.SetPictureAndSize(TurnedImage(Custom, transform));
  }
}

void Turn(Palette& palette, Transform transform) {
  const Picture stamp = TurnedImage(palette.Picture1, transform);
  Size size = {stamp.Width(), stamp.Height()};
  palette.SetPicture1(stamp, size);
  if (palette.TileSetSelector.ListIndex == kCustomSet) {
    TurnCustom(palette.Custom, transform);
    size = palette.Custom.ScaleSize();
  }
  palette.Shape1.SetSize(size);
  palette.SwitchToTileMode();
  palette.document.StatusText =
      palette.Label2 + (IsFlip(transform) ? " tile flipped" : " tile rotated");
}

}  // namespace

void FlipHorizontal_Click(Palette& palette) {
  Turn(palette, Transform::FlipHorizontal);
}
void FlipVertical_Click(Palette& palette) {
  Turn(palette, Transform::FlipVertical);
}
void Rotate_Click(Palette& palette) {
  Turn(palette, Transform::RotateRight);
}
void RotateLeft_Click(Palette& palette) {
  Turn(palette, Transform::RotateLeft);
}

}  // namespace morvane
