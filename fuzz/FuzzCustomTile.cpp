#include <QGuiApplication>

#include "fuzz/Require.h"
#include "platform/PictureDecoding.h"

// The fuzzer declares these parameters.
// NOLINTNEXTLINE(readability-non-const-parameter)
extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  static const QGuiApplication application(*count, *arguments);
  return 0;
}

/// The input is the file of a custom tile in any format but BMP.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  // Larger pictures would take too long.
  Result<Picture> tile = DecodeForeignPicture(Bytes(data, data + size), {.pixels = 2'000'000});
  Require(tile.Ok() || !tile.Reason().empty(), "a refusal has a reason");
  if (!tile.Ok()) return 0;
  const PictureView picture = tile.Value().View();
  Require(picture.width > 0 && picture.height > 0, "a picture has a size");
  for (const Pixel pixel : std::span(picture.Row(0), picture.Row(picture.height))) {
    Require(pixel >> 24U == 255, "a picture is opaque");
  }
  return 0;
}
