#include <algorithm>

#include "fuzz/Require.h"
#include "tests/support/FileBytes.h"

namespace morvane {
namespace {

/// Larger pictures are not written again, which would take too long.
constexpr int kMaxWrittenPixels = 1 << 18;

constexpr const char* kBroken = "Input/output error";

/// A file that can't be read at one place.
class BrokenSource : public ByteSource {
 public:
  BrokenSource(std::span<const std::uint8_t> bytes, std::size_t broken)
      : source_(bytes), broken_(broken) {}

  std::size_t Size() const override { return source_.Size(); }
  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    Require(place + buffer.size() <= Size(), "no read goes beyond the end");
    const bool hit = place <= broken_ && broken_ < place + buffer.size();
    return hit ? Failure(kBroken) : source_.ReadAt(place, buffer);
  }

 private:
  MemorySource source_;
  std::size_t broken_;
};

void WriteAndReadAgain(const Picture& picture) {
  Result<Picture> again = ReadBmp(WriteBmp(picture.View()));
  Require(again.Ok(), "a written file can be read");
  Require(again.Value() == picture, "the written picture is read back");
}

void ReadBroken(std::span<const std::uint8_t> bytes, std::size_t place,
                Result<LoadedPicture>& whole) {
  BrokenSource file(bytes, place);
  Result<LoadedPicture> read = ReadBmp(file);
  if (read.Ok()) {
    Require(whole.Ok() && read.Value().picture == whole.Value().picture,
            "a byte that isn't needed doesn't matter");
  } else {
    Require(read.Reason() == kBroken || (!whole.Ok() && read.Reason() == whole.Reason()),
            "a failed read is the reason");
  }
}

}  // namespace
}  // namespace morvane

/// The input is a BMP file. Its last two bytes select where a second read fails.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  const std::span bytes(data, size);
  MemorySource file(bytes);
  IsBmp(file);
  Result<LoadedPicture> picture = ReadBmp(file);
  Require(picture.Ok() || !picture.Reason().empty(), "a refusal has a reason");
  if (size >= 2) ReadBroken(bytes, (data[size - 1] * 256U + data[size - 2]) % size, picture);
  if (!picture.Ok()) return 0;
  const Picture& read = picture.Value().picture;
  Require(read.Width() > 0 && read.Height() > 0, "a picture has a size");
  if (read.Width() * read.Height() <= kMaxWrittenPixels) WriteAndReadAgain(read);
  return 0;
}
