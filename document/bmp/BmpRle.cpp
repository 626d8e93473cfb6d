#include "document/bmp/BmpRle.h"

#include <algorithm>

#include "document/picture/Blit.h"

namespace morvane {
namespace {

/// The second byte of a pair that begins with 0. A larger value is the number of single pixels that
/// follow.
enum : unsigned { kEndOfLine = 0, kEndOfPicture = 1, kDelta = 2 };

class RunReader {
 public:
  RunReader(ByteWindow& file, const BmpHeader& header, const Surface& picture)
      : file_(file), header_(header), target_(picture), y_(header.height - 1) {}

  bool HasFoundDamage() const { return hasFoundDamage_; }

  Failure Read() {
    const Pixel background = header_.palette.empty() ? PixelOf(0) : header_.palette[0];
    FillBox(target_, target_.Bounds(), ColorOf(background));
    while (!ended_) {
      if (!file_.Show(2)) return AtEndOfData();
      const unsigned first = file_.Data()[0];
      const unsigned second = file_.Data()[1];
      const bool isRun = first != 0;
      file_.Take(isRun ? 1 : 2);
      if (isRun ? !ReadRun(first) : !ReadEscape(second)) return AtEndOfData();
    }
    return {};
  }

 private:
  /// A file may lack the end marker if all rows are complete.
  Failure AtEndOfData() const {
    if (!file_.Reason().empty()) return file_.Reason();
    return y_ < 0 ? Failure() : "The file ends too early.";
  }

  /// Sets the next pixel.
  void Put(Pixel pixel) { target_.Row(y_)[x_++] = pixel; }

  /// How many of the next pixels lie in the picture. The others are dropped.
  unsigned Visible(unsigned count) {
    const unsigned room = y_ < 0 ? 0 : static_cast<unsigned>(header_.width - x_);
    // Some programs also encode the unused half of the last byte of a row.
    const bool isFilled = header_.compression == BmpCompression::Rle4 && room % 2 == 1;
    if (count > room + (isFilled ? 1 : 0)) hasFoundDamage_ = true;
    return std::min(count, room);
  }

  void Skip(int columns, int rows) {
    hasFoundDamage_ = hasFoundDamage_ || x_ + columns > header_.width || y_ - rows < -1;
    x_ = std::min(x_ + columns, header_.width);
    y_ = std::max(y_ - rows, -1);
  }

  Pixel ColorOfIndex(unsigned index) {
    hasFoundDamage_ |= index >= header_.colors;
    return header_.palette[index];
  }

  Pixel TrueColor(std::size_t at) const {
    const std::uint8_t* bytes = file_.Data() + at;
    return MakePixel(bytes[2], bytes[1], bytes[0]);
  }

  bool ReadRun(unsigned count) {
    const bool trueColor = header_.compression == BmpCompression::Rle24;
    const std::size_t bytes = trueColor ? 3 : 1;
    if (!file_.Show(bytes)) return false;
    const unsigned value = file_.Data()[0];
    count = Visible(count);
    if (count > 0) {
      const Pixel first = trueColor ? TrueColor(0) : ColorOfIndex(IndexIn(value, 0));
      const Pixel second = trueColor || count == 1 ? first : ColorOfIndex(IndexIn(value, 1));
      for (unsigned i = 0; i < count; ++i) Put(i % 2 == 0 ? first : second);
    }
    file_.Take(bytes);
    return true;
  }

  bool ReadEscape(unsigned code) {
    switch (code) {
      case kEndOfLine:
        x_ = 0;
        y_ = std::max(y_ - 1, -1);  // an end marker too many is tolerated
        return true;
      case kEndOfPicture:
        ended_ = true;
        return true;
      case kDelta:
        if (!file_.Show(2)) return false;
        Skip(file_.Data()[0], file_.Data()[1]);
        file_.Take(2);
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
    if (!file_.Show(bytes)) return false;
    count = Visible(count);
    for (unsigned i = 0; i < count; ++i) {
      if (trueColor) {
        Put(TrueColor(std::size_t{i} * 3));
      } else {
        Put(ColorOfIndex(IndexIn(file_.Data()[nibbles ? i / 2 : i], i)));
      }
    }
    // Single pixels are padded to an even number of bytes.
    file_.Skip(bytes + bytes % 2);
    return true;
  }

  /// The palette index of pixel i in a byte that holds one or two of them.
  unsigned IndexIn(unsigned byte, unsigned i) const {
    if (header_.compression == BmpCompression::Rle8) return byte;
    return i % 2 == 0 ? byte >> 4U : byte & 0xFU;
  }

  ByteWindow& file_;
  const BmpHeader& header_;
  Surface target_;
  int x_ = 0;
  int y_;
  bool ended_ = false;
  bool hasFoundDamage_ = false;
};

}  // namespace

Failure ReadBmpRuns(ByteWindow& file, const BmpHeader& header, const Surface& picture,
                    bool& hasFoundDamage) {
  RunReader reader(file, header, picture);
  Failure failure = reader.Read();
  hasFoundDamage = reader.HasFoundDamage();
  return failure;
}

}  // namespace morvane
