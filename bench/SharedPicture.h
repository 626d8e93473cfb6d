#pragma once

#include <QImage>
#include <memory>
#include <string>
#include <vector>

#include "bench/Comparison.h"
#include "document/picture/Picture.h"

namespace morvane::bench {

/// The size of the map in the window as designed.
inline constexpr Size kDesignedMap{615, 483};

struct Place {
  int x;
  int y;
};

/// A picture that Morvane and its peers use in turn, so that its alignment is the same for all.
class SharedPicture {
 public:
  explicit SharedPicture(Picture start) : picture_(std::make_shared<Picture>(std::move(start))) {}
  explicit SharedPicture(Size size) : SharedPicture(Picture(size.width, size.height)) {}

  Surface Draw() const { return picture_->Draw(); }
  PictureView View() const { return picture_->View(); }
  /// An operation whose output is this picture.
  Operation AsOperation(const std::string& name, int pieces = 1) const;

 private:
  std::shared_ptr<Picture> picture_;
};

/// Text such as "20x20".
std::string SizeText(Size size);

/// A picture of random colours, the same in every run of the program.
Picture RandomPicture(Size size, unsigned seed);

/// All cells of the designed map where a rectangle of that size fits.
std::vector<Place> Cells(Size size);

/// Copies a rectangle row by row without clipping: the lower limit for copies.
void CopyRows(const Surface& target, Place place, const PictureView& source);

/// Copies all pixels with one memcpy.
void CopyWhole(const Surface& target, const PictureView& source);

/// The pixels in 32 bits. There must be no gap between the rows.
Bytes PixelsOf(QImage image);

}  // namespace morvane::bench
