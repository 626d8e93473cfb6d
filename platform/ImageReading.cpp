#include "platform/ImageReading.h"

#include <QIODevice>
#include <QImageReader>
#include <algorithm>

#include "platform/EndMarker.h"
#include "platform/JpegWarnings.h"

namespace morvane {
namespace {

/// The bytes of a picture, which can't be read any more once isCanceled is set. Not a QBuffer,
/// because decoders access its memory directly.
class StoppableBytes : public QIODevice {
 public:
  StoppableBytes(const Bytes& content, const std::atomic<bool>& isCanceled)
      : content_(content), isCanceled_(isCanceled) {
    open(ReadOnly | Unbuffered);
  }

  qint64 size() const override { return static_cast<qint64>(content_.size()); }

 protected:
  qint64 readData(char* data, qint64 maxSize) override {
    if (isCanceled_) return -1;
    const qint64 count = std::clamp<qint64>(size() - pos(), 0, maxSize);
    std::copy_n(content_.begin() + pos(), count, data);
    return count;
  }
  qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

 private:
  const Bytes& content_;
  const std::atomic<bool>& isCanceled_;
};

bool IsTooLarge(const QSize& size, long long maxPixels) {
  return qint64{size.width()} * size.height() > maxPixels;
}

}  // namespace

Result<ForeignImage> ReadForeignImage(const Bytes& content, const std::atomic<bool>& isCanceled,
                                      long long maxPixels, const ReducedSize& reduced) {
  StoppableBytes bytes(content, isCanceled);
  QImageReader reader(&bytes);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  // A drawing may refer to other files and network addresses.
  if (reader.format().startsWith("svg") || reader.format() == "pdf") {
    return Failed{"Drawings of this kind can't be used, only pictures."};
  }
  const QSize claimed = reader.size();
  if (claimed.isValid() && IsTooLarge(claimed, maxPixels)) return Failed{kTooLarge};
  const bool isReduced =
      reduced && claimed.isValid() && reader.supportsOption(QImageIOHandler::ScaledSize);
  if (isReduced) reader.setScaledSize(reduced(claimed));
  TakeJpegDamage();  // of earlier pictures
  const QImage image = reader.read();
  if (image.isNull()) {
    return Failed{"This is not a picture that can be read: " + reader.errorString().toStdString() +
                  "."};
  }
  // Not every decoder knows the size in advance.
  if (IsTooLarge(image.size(), maxPixels)) return Failed{kTooLarge};
  if (TakeJpegDamage() || !HasEndMarker(content)) {
    return Failed{"The file is incomplete or damaged."};
  }
  if (!isReduced) return ForeignImage{image, image.size()};
  const bool isOnItsSide =
      reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
  return ForeignImage{image, isOnItsSide ? claimed.transposed() : claimed};
}

}  // namespace morvane
