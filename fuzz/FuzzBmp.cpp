#include "fuzz/Require.h"
#include "tests/support/Pictures.h"

/// The input is a BMP file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  MemorySource file({data, size});
  Result<LoadedPicture> picture = ReadBmp(file);
  Require(picture.Ok() || !picture.Reason().empty(), "a refusal has a reason");
  if (!picture.Ok()) return 0;
  const Picture& read = picture.Value().picture;
  Require(read.Width() > 0 && read.Height() > 0, "a picture has a size");
  if (read.Width() * read.Height() > 1 << 18) return 0;  // writing it would take too long
  Require(ReadBmp(WriteBmp(read.View())).Value() == read, "the written picture is read back");
  return 0;
}
