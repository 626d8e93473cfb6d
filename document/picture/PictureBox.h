#pragma once

#include <algorithm>
#include <optional>
#include <utility>

#include "document/picture/Picture.h"

namespace morvane {

/// Shapes of the mouse pointer, by their numbers.
enum class Pointer { Standard = 0, Cross = 2, IBeam = 3, Hourglass = 11 };

/// A box with a persistent image: drawings persist when the box is covered or resized.
///
/// The image is as large as the inside of the box has been since its picture was last replaced, and
/// at least as large as that picture. The image may have a reserve, drawn in advance, that becomes
/// visible when the box grows. Drawing is clipped at the current inside of the box.
class PictureBox {
 public:
  enum class Border { None, Sunken };

  PictureBox(int width, int height, Border border);

  /// Outer size in pixels.
  int Width() const { return width_; }
  int Height() const { return height_; }
  /// Set the outer size in pixels. A negative width or height is ignored.
  void SetWidth(int width);
  void SetHeight(int height);
  void SetSize(Size size) {
    SetWidth(size.width);
    SetHeight(size.height);
  }

  /// Inner size in pixels.
  int ScaleWidth() const { return std::max(0, width_ - 2 * border_); }
  int ScaleHeight() const { return std::max(0, height_ - 2 * border_); }
  Size ScaleSize() const { return {ScaleWidth(), ScaleHeight()}; }

  /// The persistent image.
  PictureView Image() const;
  /// For drawing into the image.
  Surface hDC();

  /// Replaces the image with the picture, at the top left corner and at its natural size, on white.
  /// The box keeps its size.
  void SetPicture(Picture picture);
  /// The memory of the image, if a picture of that size would replace it exactly. The caller must
  /// write all pixels.
  std::optional<Surface> OverwriteImage(Size size);
  /// Like SetPicture, for a box that takes the size of its picture.
  void SetPictureAndSize(Picture picture);

  /// Resets the image to white and to the size of the inside of the box, without a reserve.
  void Cls();
  /// Crops the image to the inside of the box. The rest becomes the reserve.
  void TrimImage();

  /// Marks what was drawn through hDC to be shown on the screen.
  void Refresh();
  /// The area to repaint since the last call.
  Rect TakeExposed() { return std::exchange(exposed_, Rect{}); }

  void SetFocus() { focusWanted_ = true; }
  /// Whether the box was given the focus since the last call.
  bool TakeFocus() { return std::exchange(focusWanted_, false); }

  Pointer MousePointer = Pointer::Standard;

 private:
  void GrowImage(int width, int height);
  void ExposeAll();

  int width_;
  int height_;
  int border_;     ///< pixels on each side
  Picture store_;  ///< the image and its reserve
  Size image_;     ///< the part of store_ that is the image
  Rect damage_;    ///< drawn, but not yet on the screen
  Rect exposed_;
  bool focusWanted_ = false;
};

}  // namespace morvane
