#pragma once

#include <QImage>
#include <atomic>
#include <string>

namespace morvane {

/// Reduced copies of a picture, on white. Their device pixel ratio is set.
struct Thumbnail {
  QImage small;  ///< for a row of a list
  QImage large;  ///< for a tool tip
  QSize size;    ///< of the original picture; empty if it can't be read
};

/// The longest sides of thumbnails in logical pixels, and the physical pixels per logical pixel.
struct ThumbnailSizes {
  int small;
  int large;
  int zoom = 1;
};

/// Makes the thumbnail of a picture file. Returns an empty one if the file can't be used as a tile,
/// is very large, or if isCanceled is set before the end.
Thumbnail ReadThumbnail(const std::string& path, const ThumbnailSizes& sizes,
                        const std::atomic<bool>& isCanceled);

}  // namespace morvane
