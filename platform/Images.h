#pragma once

#include <QImage>

#include "document/Picture.h"

namespace morvane {

/// The pixels of a picture as the toolkit's image, not copied; they must outlive it.
inline QImage ImageOver(const PictureView& picture) {
  return {reinterpret_cast<const uchar*>(picture.pixels), picture.width, picture.height,
          picture.stride * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32};
}

/// The same for painting into the picture.
inline QImage ImageOver(const Surface& surface) {
  return {reinterpret_cast<uchar*>(surface.pixels), surface.width, surface.height,
          surface.stride * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32};
}

}  // namespace morvane
