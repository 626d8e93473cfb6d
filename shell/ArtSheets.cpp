#include "shell/ArtSheets.h"

#include <QImage>

namespace morvane {

Picture LoadArtSheet(const std::string& name) {
  QImage image(":/tiles/" + QString::fromStdString(name) + ".png");
  image.convertTo(QImage::Format_RGB32);
  return Picture(PictureView{reinterpret_cast<const Pixel*>(image.constBits()), image.width(),
                             image.height(),
                             static_cast<int>(image.bytesPerLine() / qsizetype{sizeof(Pixel)})});
}

QPixmap LoadPhoto(const char* name, double devicePixelRatio) {
  const bool isHighDpi = devicePixelRatio > 1;
  QPixmap picture(QString(isHighDpi ? ":/ui/%1@2x.jpg" : ":/ui/%1.jpg").arg(name));
  picture.setDevicePixelRatio(isHighDpi ? 2 : 1);
  return picture;
}

QIcon LoadIcon(const char* name) {
  return QIcon(QString(":/ui/%1.png").arg(name));
}

}  // namespace morvane
