#include "platform/PictureDecoding.h"

#include <QIODevice>
#include <QImageReader>
#include <QPainter>
#include <algorithm>
#include <atomic>
#include <future>
#include <memory>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/Images.h"
#include "platform/JpegDamage.h"
#include "platform/PictureEnd.h"

namespace morvane {
namespace {

/// Decoders at work, given up or not.
std::atomic<int>& AtWork() {
  static std::atomic<int> count = 0;
  return count;
}

/// The bytes of a picture, which come to an end early once it is given up.
/// No QBuffer: decoders would look through it into its memory.
class StoppableBytes : public QIODevice {
 public:
  StoppableBytes(const Bytes& content, const std::atomic<bool>& isGivenUp)
      : content_(content), isGivenUp_(isGivenUp) {
    open(ReadOnly | Unbuffered);
  }

  qint64 size() const override { return static_cast<qint64>(content_.size()); }

 protected:
  qint64 readData(char* data, qint64 most) override {
    if (isGivenUp_) return -1;
    const qint64 count = std::clamp<qint64>(size() - pos(), 0, most);
    std::copy_n(content_.begin() + pos(), count, data);
    return count;
  }
  qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

 private:
  const Bytes& content_;
  const std::atomic<bool>& isGivenUp_;
};

/// A picture that is decoded beside the window.
class Decoding {
 public:
  Decoding(Bytes content, long long mostPixels)
      : content_(std::move(content)), mostPixels_(mostPixels) {}

  std::future<Result<Picture>> Outcome() { return outcome_.get_future(); }
  void GiveUp() { isGivenUp_ = true; }

  void Run() {
    Result<Picture> picture = DecodeWithinMemory();
    --AtWork();
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
    StoppableBytes bytes(content_, isGivenUp_);
    // In megabytes; a decoder may use as much as eight bytes for a pixel.
    QImageReader::setAllocationLimit(static_cast<int>(mostPixels_ * 8 / 1'000'000));
    QImageReader reader(&bytes);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    // A drawing may name other files and places to be drawn with it.
    if (reader.format().startsWith("svg") || reader.format() == "pdf") {
      return Result<Picture>::Failed("Drawings of this kind can't be used, only pictures.");
    }
    const QSize claimed = reader.size();
    if (claimed.isValid() && qint64{claimed.width()} * claimed.height() > mostPixels_) {
      return Result<Picture>::Failed(kTooLarge);
    }
    const JpegDamage damage;
    const QImage image = reader.read();
    if (image.isNull()) {
      return Result<Picture>::Failed(
          "This is not a picture that can be read: " + reader.errorString().toStdString() + ".");
    }
    if (damage.WasMet() || !HasItsEnd(content_)) {
      return Result<Picture>::Failed("The file is incomplete or damaged.");
    }
    Picture picture(image.width(), image.height());
    QImage onWhite = ImageOver(picture.Draw());
    QPainter(&onWhite).drawImage(QRect(QPoint(0, 0), image.size()), image);
    // Some decoders leave the fourth byte empty, and it is copied as it is.
    MakeOpaque(picture.Draw());
    return picture;
  }

  Bytes content_;
  long long mostPixels_;
  std::atomic<bool> isGivenUp_ = false;
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
  ++AtWork();
  try {
    thread = std::thread([decoding] { decoding->Run(); });
  } catch (const std::system_error&) {
    --AtWork();
    return Result<Picture>::Failed("There is not enough memory for this picture.");
  }
  if (outcome.wait_for(limits.time) == std::future_status::ready) {
    thread.join();
    return outcome.get();
  }
  thread.detach();
  decoding->GiveUp();
  return Result<Picture>::Failed("The picture takes too long to decode.");
}

bool IsStillDecoding() {
  return AtWork() > 0;
}

}  // namespace morvane
