#include "document/BmpRle.h"

#include <algorithm>

#include "document/Blit.h"

namespace morvane {
namespace {

/// Second byte of a pair that begins with 0; larger ones count pixels that follow one by one.
enum : unsigned { kEndOfLine = 0, kEndOfPicture = 1, kDelta = 2 };

class RunReader {
 public:
  RunReader(const Bytes& content, const BmpHeader& header, Picture& picture)
      : content_(content),
        header_(header),
        target_(picture.Draw()),
        at_(header.dataOffset),
        y_(header.height - 1) {}

  Failure Read() {
    const Pixel background = header_.palette.empty() ? PixelOf(0) : header_.palette[0];
    FillBox(target_, target_.Bounds(), ColorOf(background));
    while (!ended_) {
      if (!Has(2)) return Ended();
      const unsigned first = content_[at_];
      if (first != 0) {
        ++at_;
        if (!ReadRun(first)) return Ended();
      } else {
        const unsigned second = content_[at_ + 1];
        at_ += 2;
        if (!ReadEscape(second)) return Ended();
      }
    }
    return {};
  }

 private:
  bool Has(std::size_t bytes) const { return content_.size() - at_ >= bytes; }

  /// A file may stop without its end mark once every row is there.
  Failure Ended() const { return y_ < 0 ? Failure() : "The file ends too early."; }

  /// Sets the next pixel; what runs past the end of a row is dropped.
  void Put(Pixel pixel) {
    if (x_ == header_.width) return;
    if (y_ >= 0) target_.Row(y_)[x_] = pixel;
    ++x_;
  }

  void Skip(int columns, int rows) {
    x_ = std::min(x_ + columns, header_.width);
    y_ = std::max(y_ - rows, -1);
  }

  Pixel TrueColor(std::size_t at) const {
    return MakePixel(content_[at + 2], content_[at + 1], content_[at]);
  }

  bool ReadRun(unsigned count) {
    if (header_.compression == BmpCompression::Rle24) {
      if (!Has(3)) return false;
      for (unsigned i = 0; i < count; ++i) Put(TrueColor(at_));
      at_ += 3;
      return true;
    }
    const unsigned value = content_[at_++];
    for (unsigned i = 0; i < count; ++i) Put(header_.palette[IndexIn(value, i)]);
    return true;
  }

  bool ReadEscape(unsigned code) {
    switch (code) {
      case kEndOfLine:
        x_ = 0;
        Skip(0, 1);
        return true;
      case kEndOfPicture:
        ended_ = true;
        return true;
      case kDelta:
        if (!Has(2)) return false;
        Skip(content_[at_], content_[at_ + 1]);
        at_ += 2;
        return true;
      default:
        return ReadPixels(code);
    }
  }

  bool ReadPixels(unsigned count) {
    const bool trueColor = header_.compression == BmpCompression::Rle24;
    const bool nibbles = header_.compression == BmpCompression::Rle4;
    std::size_t bytes = nibbles ? (count + 1) / 2 : count;
    if (trueColor) bytes = std::size_t{count} * 3;
    if (!Has(bytes)) return false;
    for (unsigned i = 0; i < count; ++i) {
      if (trueColor) {
        Put(TrueColor(at_ + std::size_t{i} * 3));
      } else {
        Put(header_.palette[IndexIn(content_[at_ + (nibbles ? i / 2 : i)], i)]);
      }
    }
    // Such pixels end on an even byte.
    at_ += std::min(bytes + bytes % 2, content_.size() - at_);
    return true;
  }

  /// The palette index of pixel i in a byte that holds one or two of them.
  unsigned IndexIn(unsigned byte, unsigned i) const {
    if (header_.compression == BmpCompression::Rle8) return byte;
    return i % 2 == 0 ? byte >> 4U : byte & 0xFU;
  }

  const Bytes& content_;
  const BmpHeader& header_;
  Surface target_;
  std::size_t at_;
  int x_ = 0;
  int y_;
  bool ended_ = false;
};

}  // namespace

Failure ReadBmpRuns(const Bytes& content, const BmpHeader& header, Picture& picture) {
  return RunReader(content, header, picture).Read();
}

}  // namespace morvane
