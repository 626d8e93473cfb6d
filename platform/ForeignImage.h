#pragma once

#include <QImage>
#include <atomic>
#include <functional>

#include "document/Platform.h"
#include "document/picture/Picture.h"

namespace morvane {

struct ForeignImage {
  QImage image;
  QSize size;  ///< of the picture itself, before it was reduced
};

/// Chooses the size at which a picture is wanted, from its own.
using ReducedSize = std::function<QSize(const QSize& size)>;

/// Decodes a picture of any format but BMP with Qt's decoders, turned upright. Drawings, damaged
/// pictures and those with more pixels than the limit are refused. It ends early once it is given
/// up. Only decoders that gain from it reduce the picture.
Result<ForeignImage> ReadForeignImage(const Bytes& content, const std::atomic<bool>& isGivenUp,
                                      long long mostPixels = kMostPixels,
                                      const ReducedSize& reduced = {});

}  // namespace morvane
