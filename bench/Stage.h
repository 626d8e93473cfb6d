#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/Contest.h"
#include "document/picture/Picture.h"

namespace morvane::bench {

/// The size of the map in the designed window.
inline constexpr Size kMap{615, 483};

struct Place {
  int x;
  int y;
};

/// A picture in memory that all peers use, so that its alignment is the same for all.
struct Stage {
  explicit Stage(Picture start);

  Surface Draw() const { return picture->Draw(); }
  PictureView View() const { return picture->View(); }
  int Width() const { return picture->Width(); }
  int Height() const { return picture->Height(); }
  std::size_t Bytes() const;
  /// An operation whose output is this picture.
  Work AsWork(const std::string& name, int pieces = 1) const;

  std::shared_ptr<Picture> picture;
};

/// Text such as "20x20".
std::string SizeText(Size size);

/// A picture of random colours, the same in every run of the program.
Picture Noise(Size size, unsigned seed);

/// All cells of the map where a rectangle of that size fits.
std::vector<Place> Cells(Size size);

/// Copies a rectangle row by row without clipping: the lower bound for copies.
void CopyRows(const Surface& target, Place place, const PictureView& source);

/// Copies all pixels with one memcpy.
void CopyWhole(const Stage& target, const Stage& source);

/// The pixels of a picture that has no gap between its rows.
Result PixelsOf(const std::shared_ptr<Picture>& picture);

}  // namespace morvane::bench
