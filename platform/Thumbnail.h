#pragma once

#include <QImage>
#include <atomic>
#include <string>

namespace morvane {

/// Small copies of a picture, over white, in pixels of the display.
struct Thumbnail {
  QImage small;  ///< for a row of a list
  QImage large;  ///< for a tool tip
  QSize size;    ///< of the picture itself; empty where it can't be read
};

/// The longest sides, in pixels of the window.
inline constexpr int kSmallThumbnail = 16;
inline constexpr int kLargeThumbnail = 120;

/// Reads the picture of a file for a display that shows a pixel of the window as zoom by zoom. What
/// can't be a tile has no thumbnail. It ends early once it is given up.
Thumbnail ReadThumbnail(const std::string& path, int zoom, const std::atomic<bool>& isGivenUp);

}  // namespace morvane
