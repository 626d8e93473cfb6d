#include "platform/PictureDecoding.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include "platform/Images.h"

namespace morvane {
namespace {

constexpr int kMegabytesForMostPixels = static_cast<int>(kMostPixels * 8 / 1'000'000);

}  // namespace

Result<Picture> DecodeForeignPicture(const Bytes& content) {
  QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(content.data()),
                                             static_cast<qsizetype>(content.size()));
  QBuffer buffer(&bytes);
  QImageReader::setAllocationLimit(kMegabytesForMostPixels);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize claimed = reader.size();
  if (claimed.isValid() && qint64{claimed.width()} * claimed.height() > kMostPixels) {
    return Result<Picture>::Failed(kTooLarge);
  }
  const QImage image = reader.read();
  if (image.isNull()) {
    return Result<Picture>::Failed(
        "This is not a picture that can be read: " + reader.errorString().toStdString() + ".");
  }
  Picture picture(image.width(), image.height());
  QImage onWhite = ImageOver(picture.Draw());
  QPainter(&onWhite).drawImage(QRect(QPoint(0, 0), image.size()), image);
  return picture;
}

}  // namespace morvane
