#pragma once

#include <optional>

#include "document/picture/Picture.h"

namespace morvane {

/// Pointer shapes by their numbers.
enum class Pointer { Standard = 0, Cross = 2, IBeam = 3, Hourglass = 11 };

/// A box with a persistent image: what is drawn stays through covering and resizing.
///
/// The image is as large as the inside of the box has been since its picture was last replaced, and
/// at least as large as that picture. Behind the image may lie a reserve, drawn ahead, that a
/// growing box brings into the image. Drawing is cut at the present inside of the box.
class PictureBox {
 public:
  enum class Border { None, Sunken };

  PictureBox(int width, int height, Border border);

  /// Outer size in pixels.
  int Width() const { return width_; }
  int Height() const { return height_; }
  /// Sets one side of the outer size. A negative one is refused: the box keeps the side it had.
  void SetWidth(int width);
  void SetHeight(int height);

  /// Inner size in pixels.
  int ScaleWidth() const;
  int ScaleHeight() const;
  Size ScaleSize() const { return {ScaleWidth(), ScaleHeight()}; }

  /// The persistent image.
  PictureView Image() const;
  /// For drawing into the image.
  Surface hDC();

  /// Puts the picture in the place of the image, at the top left corner and at its natural size, on
  /// white. The box keeps its size.
  void SetPicture(Picture picture);
  /// The memory of the image, where a picture of that size would take its place as it is. All its
  /// pixels are going to be written anew.
  std::optional<Surface> OverwriteImage(Size size);
  /// Like SetPicture, for a box that takes the size of its picture.
  void SetPictureAndSize(Picture picture);

  /// Begins the image anew, white and as large as the inside of the box, with nothing in reserve.
  void Cls();
  /// Cuts the image down to the inside of the box; what was drawn beyond stays in reserve.
  void TrimImage();

  /// Lets the screen show what was drawn through hDC.
  void Refresh();
  /// What the screen has to show anew since this was last asked.
  Rect TakeExposed();

  void SetFocus() { focusWanted_ = true; }
  /// Whether the focus was given to the box since this was last asked.
  bool TakeFocus();

  Pointer MousePointer = Pointer::Standard;

 private:
  void GrowImage(int width, int height);
  void ExposeAll();

  int width_;
  int height_;
  int border_;     ///< pixels a side
  Picture store_;  ///< the image and its reserve
  Size image_;     ///< the part of store_ that is the image
  Rect damage_;    ///< drawn, but not yet on the screen
  Rect exposed_;
  bool focusWanted_ = false;
};

}  // namespace morvane
