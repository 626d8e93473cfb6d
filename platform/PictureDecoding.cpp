#include "platform/PictureDecoding.h"

#include <QPainter>
#include <atomic>
#include <future>
#include <memory>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "document/PictureFile.h"
#include "platform/ImageReading.h"
#include "platform/Images.h"

namespace morvane {
namespace {

/// Whether a decoder is running, abandoned or not.
std::atomic<bool> isDecoding = false;

Result<Picture> Decode(const Bytes& content, const std::atomic<bool>& isCanceled,
                       long long maxPixels) {
  Result<ForeignImage> read = ReadForeignImage(content, isCanceled, maxPixels);
  if (!read.Ok()) return Failed{read.Reason()};
  const QImage& image = read.Value().image;
  Picture picture(image.width(), image.height());
  QImage onWhite = ImageOver(picture.Draw());
  QPainter(&onWhite).drawImage(QRect(QPoint(0, 0), image.size()), image);
  // Some decoders leave the fourth byte 0, which drawing copies.
  MakeOpaque(picture.Draw());
  return picture;
}

}  // namespace

Result<Picture> DecodeForeignPicture(Bytes content, DecodingLimits limits) {
  if (IsStillDecoding()) return Failed{"The decoder is still busy with an earlier picture."};
  const auto isCanceled = std::make_shared<std::atomic<bool>>(false);
  std::packaged_task<Result<Picture>()> decode(
      [content = std::move(content), isCanceled, maxPixels = limits.pixels] {
        return Decode(content, *isCanceled, maxPixels);
      });
  std::future<Result<Picture>> outcome = decode.get_future();
  std::thread thread;
  isDecoding = true;
  try {
    thread = std::thread([decode = std::move(decode)]() mutable {
      decode();
      isDecoding = false;
    });
  } catch (const std::system_error&) {
    isDecoding = false;
    return Failed{kOutOfMemory};
  } catch (const std::bad_alloc&) {
    isDecoding = false;
    throw;
  }
  if (outcome.wait_for(limits.time) == std::future_status::ready) {
    thread.join();
    return outcome.get();
  }
  thread.detach();
  *isCanceled = true;
  return Failed{"The picture takes too long to decode."};
}

bool IsStillDecoding() {
  return isDecoding;
}

}  // namespace morvane
