#include "platform/Thumbnail.h"

#include <QPainter>
#include <algorithm>
#include <exception>
#include <utility>

#include "document/PictureFile.h"
#include "document/bmp/Bmp.h"
#include "platform/Files.h"
#include "platform/ImageReading.h"
#include "platform/Images.h"

namespace morvane {
namespace {

/// Larger files of foreign formats and larger pictures have no thumbnail: reading and decoding them
/// would take too much memory.
constexpr std::size_t kMaxForeignBytes = 32 << 20;
constexpr long long kMaxSourcePixels = 25'000'000;

/// A file of which nothing more is read once isCanceled is set.
class StoppableFile : public ByteSource {
 public:
  StoppableFile(ByteSource& file, const std::atomic<bool>& isCanceled)
      : file_(file), isCanceled_(isCanceled) {}

  std::size_t Size() const override { return file_.Size(); }

  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    Failure failure;
    while (failure.empty() && !buffer.empty()) {
      if (isCanceled_) return "Decoding was canceled.";
      const std::size_t count = std::min(buffer.size(), kChunkBytes);
      failure = file_.ReadAt(place, buffer.first(count));
      place += count;
      buffer = buffer.subspan(count);
    }
    return failure;
  }

 private:
  ByteSource& file_;
  const std::atomic<bool>& isCanceled_;
};

/// The size of a picture scaled down to fit a square. Smaller pictures are not scaled.
QSize Reduced(const QSize& size, int side) {
  if (std::max(size.width(), size.height()) <= side) return size;
  return size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1});
}

/// The image on white, reduced to fit a square with this side in logical pixels. A picture that
/// needn't be reduced keeps its sharp pixels, as large as on the map.
QImage Fitted(const QImage& image, int side, int zoom) {
  const QSize size = Reduced(image.size(), side);
  const auto mode = size == image.size() ? Qt::FastTransformation : Qt::SmoothTransformation;
  QImage fitted(size * zoom, QImage::Format_RGB32);
  fitted.fill(Qt::white);
  QPainter(&fitted).drawImage(0, 0, image.scaled(fitted.size(), Qt::IgnoreAspectRatio, mode));
  fitted.setDevicePixelRatio(zoom);
  return fitted;
}

Thumbnail ThumbnailOf(const QImage& image, const QSize& size, const ThumbnailSizes& sizes) {
  const auto& [small, large, zoom] = sizes;
  const QImage reduced = image.scaled(Reduced(image.size(), large * zoom), Qt::IgnoreAspectRatio,
                                      Qt::SmoothTransformation);
  if (reduced.isNull()) return {};
  return {Fitted(reduced, small, zoom), Fitted(reduced, large, zoom), size};
}

Thumbnail ReadForeignThumbnail(ByteSource& file, const ThumbnailSizes& sizes,
                               const std::atomic<bool>& isCanceled) {
  if (file.Size() > kMaxForeignBytes) return {};
  Result<Bytes> content = ReadAll(file);
  if (!content.Ok()) return {};
  const auto reduced = [side = sizes.large * sizes.zoom](const QSize& size) {
    return Reduced(size, side);
  };
  Result<ForeignImage> read =
      ReadForeignImage(content.Value(), isCanceled, kMaxSourcePixels, reduced);
  return read.Ok() ? ThumbnailOf(read.Value().image, read.Value().size, sizes) : Thumbnail();
}

}  // namespace

Thumbnail ReadThumbnail(const std::string& path, const ThumbnailSizes& sizes,
                        const std::atomic<bool>& isCanceled) {
  try {
    OpenedFile opened = OpenRegularFile(path);
    if (!opened.Ok()) return {};
    StoppableFile file(*opened.Value(), isCanceled);
    if (!IsBmp(file)) return ReadForeignThumbnail(file, sizes, isCanceled);
    Result<LoadedPicture> picture = ReadBmp(file, kMaxSourcePixels);
    if (!picture.Ok()) return {};
    const QImage image = ImageOver(picture.Value().picture.View());
    return ThumbnailOf(image, image.size(), sizes);
  } catch (const std::exception&) {
    // Out of memory, or a size that a container can't have.
    return {};
  }
}

}  // namespace morvane
