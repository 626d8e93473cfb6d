#pragma once

#include <QImage>

#include "document/picture/Picture.h"

namespace morvane {

/// A QImage over the pixels of a picture, which must outlive it.
inline QImage ImageOver(const PictureView& picture) {
  return {reinterpret_cast<const uchar*>(picture.pixels), picture.width, picture.height,
          picture.stride * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32};
}

/// The same, writable.
inline QImage ImageOver(const Surface& surface) {
  return {reinterpret_cast<uchar*>(surface.pixels), surface.width, surface.height,
          surface.stride * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32};
}

/// Sets the fourth byte of every pixel to 0xFF, as the core expects it.
inline void MakeOpaque(const Surface& surface) {
  for (int y = 0; y < surface.height; ++y) {
    for (int x = 0; x < surface.width; ++x) surface.Row(y)[x] |= 0xFF000000U;
  }
}

}  // namespace morvane
