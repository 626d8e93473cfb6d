#include "platform/PictureDecoding.h"

#include <QPainter>
#include <atomic>
#include <future>
#include <memory>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/ForeignImage.h"
#include "platform/Images.h"

namespace morvane {
namespace {

/// The number of running decoders, abandoned or not.
std::atomic<int>& RunningDecoders() {
  static std::atomic<int> count = 0;
  return count;
}

/// A picture that is decoded in another thread.
class Decoding {
 public:
  Decoding(Bytes content, long long maxPixels)
      : content_(std::move(content)), mostPixels_(maxPixels) {}

  std::future<Result<Picture>> Outcome() { return outcome_.get_future(); }
  void Cancel() { isCanceled_ = true; }

  void Run() {
    Result<Picture> picture = DecodeWithinMemory();
    --RunningDecoders();
    outcome_.set_value(std::move(picture));
  }

 private:
  Result<Picture> DecodeWithinMemory() {
    try {
      return Decode();
    } catch (const std::bad_alloc&) {
      return Result<Picture>::Failed("There is not enough memory for this picture.");
    }
  }

  Result<Picture> Decode() {
    Result<ForeignImage> read = ReadForeignImage(content_, isCanceled_, mostPixels_);
    if (!read.Ok()) return Result<Picture>::Failed(read.Reason());
    const QImage& image = read.Value().image;
    Picture picture(image.width(), image.height());
    QImage onWhite = ImageOver(picture.Draw());
    QPainter(&onWhite).drawImage(QRect(QPoint(0, 0), image.size()), image);
    // Some decoders leave the fourth byte 0, which drawing copies.
    MakeOpaque(picture.Draw());
    return picture;
  }

  Bytes content_;
  long long mostPixels_;
  std::atomic<bool> isCanceled_ = false;
  std::promise<Result<Picture>> outcome_;
};

}  // namespace

Result<Picture> DecodeForeignPicture(Bytes content, DecodingLimits limits) {
  if (IsStillDecoding()) {
    return Result<Picture>::Failed("The decoder is still busy with an earlier picture.");
  }
  const auto decoding = std::make_shared<Decoding>(std::move(content), limits.pixels);
  std::future<Result<Picture>> outcome = decoding->Outcome();
  std::thread thread;
  ++RunningDecoders();
  try {
    thread = std::thread([decoding] { decoding->Run(); });
  } catch (const std::system_error&) {
    --RunningDecoders();
    return Result<Picture>::Failed("There is not enough memory for this picture.");
  }
  if (outcome.wait_for(limits.time) == std::future_status::ready) {
    thread.join();
    return outcome.get();
  }
  thread.detach();
  decoding->Cancel();
  return Result<Picture>::Failed("The picture takes too long to decode.");
}

bool IsStillDecoding() {
  return RunningDecoders() > 0;
}

}  // namespace morvane
