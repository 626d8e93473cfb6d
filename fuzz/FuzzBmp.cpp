#include "fuzz/Require.h"
#include "tests/support/Pictures.h"

/// The input is a BMP file. Its last two bytes select where a second read fails.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  if (size < 2) return 0;
  OwnedBytes file(Bytes(data, data + size));
  IsBmp(file);
  Result<LoadedPicture> picture = ReadBmp(file);
  Require(picture.Ok() || !picture.Reason().empty(), "a refusal has a reason");
  file.readable = (data[size - 1] * 256U + data[size - 2]) % size;
  Result<LoadedPicture> broken = ReadBmp(file);
  const std::string reason = broken.Ok() ? "" : broken.Reason();
  if (!picture.Ok()) {
    Require(reason == "Input/output error" || reason == picture.Reason(),
            "a failed read is the reason");
    return 0;
  }
  const Picture& read = picture.Value().picture;
  Require(broken.Ok() ? broken.Value().picture == read : reason == "Input/output error",
          "bytes that aren't needed don't matter");
  Require(read.Width() > 0 && read.Height() > 0, "a picture has a size");
  if (read.Width() * read.Height() > 1 << 18) return 0;  // writing it would take too long
  Require(ReadBmp(WriteBmp(read.View())).Value() == read, "the written picture is read back");
  return 0;
}
