#pragma once

#include <QImage>
#include <atomic>
#include <functional>

#include "document/Platform.h"
#include "document/picture/Picture.h"

namespace morvane {

struct ForeignImage {
  QImage image;
  QSize size;  ///< of the original picture, before scaling
};

/// Returns the wanted size of a picture for its original size.
using ReducedSize = std::function<QSize(const QSize& size)>;

/// Decodes a picture of any format but BMP with Qt's decoders, turned upright. Drawings, damaged
/// pictures and those with more pixels than the limit are refused. Ends early once isCanceled is
/// set. Only decoders that are faster that way scale the picture.
Result<ForeignImage> ReadForeignImage(const Bytes& content, const std::atomic<bool>& isCanceled,
                                      long long maxPixels, const ReducedSize& reduced = {});

}  // namespace morvane
