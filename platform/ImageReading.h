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

/// Returns the size that a picture of the given size is scaled to.
using ReducedSize = std::function<QSize(const QSize& size)>;

/// Decodes a picture of any format but BMP with Qt's decoders, turned upright. Drawings, damaged
/// pictures and those with more pixels than the limit are refused. Fails early once isCanceled is
/// set. The picture is scaled only if its decoder supports that: decoding is faster then.
Result<ForeignImage> ReadForeignImage(const Bytes& content, const std::atomic<bool>& isCanceled,
                                      long long maxPixels, const ReducedSize& reduced = {});

}  // namespace morvane
