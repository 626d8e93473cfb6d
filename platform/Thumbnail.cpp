#include "platform/Thumbnail.h"

#include <QPainter>
#include <algorithm>
#include <new>
#include <utility>

#include "document/PictureFile.h"
#include "document/bmp/Bmp.h"
#include "platform/Files.h"
#include "platform/ForeignImage.h"
#include "platform/Images.h"

namespace morvane {
namespace {

/// Decoding a larger picture would take too much memory for its thumbnail.
constexpr long long kMostThumbnailPixels = 25'000'000;

/// A file that can't be read any more once isGivenUp is set.
class StoppableFile : public ByteSource {
 public:
  StoppableFile(ByteSource& file, const std::atomic<bool>& isGivenUp)
      : file_(file), isGivenUp_(isGivenUp) {}

  std::size_t Size() const override { return file_.Size(); }

  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    Failure failure;
    while (failure.empty() && !buffer.empty()) {
      if (isGivenUp_) return "The picture was given up.";
      const std::size_t count = std::min(buffer.size(), kChunkBytes);
      failure = file_.ReadAt(place, buffer.first(count));
      place += count;
      buffer = buffer.subspan(count);
    }
    return failure;
  }

 private:
  ByteSource& file_;
  const std::atomic<bool>& isGivenUp_;
};

int LongestSide(const QSize& size) {
  return std::max(size.width(), size.height());
}

/// The size of a picture scaled down to fit a square. Smaller pictures are not scaled.
QSize Reduced(const QSize& size, int side) {
  if (LongestSide(size) <= side) return size;
  return size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1});
}

QImage Reduced(const QImage& image, int side) {
  const QSize size = Reduced(image.size(), side);
  return size == image.size() ? image
                              : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// The image on white, fitted to a square of the window. Its pixels are as large as on the map or,
/// if that doesn't fit, enlarged by the largest integer factor that does, since others would blur
/// them.
QImage Fitted(const QImage& image, int side, int zoom) {
  const QImage reduced = Reduced(image, side * zoom);
  const QSize size = reduced.size();
  const int factor = std::clamp(side * zoom / LongestSide(size), 1, zoom);
  const auto wholePixels = [zoom](int length) { return (length + zoom - 1) / zoom * zoom; };
  const QSize shown = size * factor;
  QImage fitted(wholePixels(shown.width()), wholePixels(shown.height()), QImage::Format_RGB32);
  fitted.fill(Qt::white);
  QPainter(&fitted).drawImage(QRect(QPoint(0, 0), shown), reduced);
  fitted.setDevicePixelRatio(zoom);
  return fitted;
}

Thumbnail ThumbnailOf(const QImage& image, const QSize& size, int zoom) {
  const QImage reduced = Reduced(image, kLargeThumbnail * zoom);
  if (reduced.isNull()) return {};
  return {Fitted(reduced, kSmallThumbnail, zoom), Fitted(reduced, kLargeThumbnail, zoom), size};
}

Thumbnail ReadForeignThumbnail(ByteSource& file, int zoom, const std::atomic<bool>& isGivenUp) {
  if (file.Size() > kMostForeignBytes) return {};
  Result<Bytes> content = ReadAll(file);
  if (!content.Ok()) return {};
  const auto reduced = [zoom](const QSize& size) { return Reduced(size, kLargeThumbnail * zoom); };
  Result<ForeignImage> read =
      ReadForeignImage(content.Value(), isGivenUp, kMostThumbnailPixels, reduced);
  return read.Ok() ? ThumbnailOf(read.Value().image, read.Value().size, zoom) : Thumbnail();
}

}  // namespace

Thumbnail ReadThumbnail(const std::string& path, int zoom, const std::atomic<bool>& isGivenUp) {
  try {
    Result<std::unique_ptr<ByteSource>> opened = OpenRegularFile(path);
    if (!opened.Ok()) return {};
    StoppableFile file(*opened.Value(), isGivenUp);
    if (!IsBmp(file)) return ReadForeignThumbnail(file, zoom, isGivenUp);
    Result<LoadedPicture> picture = ReadBmp(file, kMostThumbnailPixels);
    if (!picture.Ok()) return {};
    const QImage image = ImageOver(picture.Value().picture.View());
    return ThumbnailOf(image, image.size(), zoom);
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace morvane
