#include "document/PictureFile.h"

#include <algorithm>
#include <cassert>
#include <new>

#include "document/bmp/Bmp.h"
#include "document/io/ByteSources.h"

namespace morvane {
namespace {

[[maybe_unused]] bool IsOpaque(const PictureView& picture) {
  const Pixel* end = picture.Row(picture.height);
  return std::all_of(picture.pixels, end, [](Pixel pixel) { return pixel >= 0xFF000000U; });
}

Result<LoadedPicture> DecodeForeign(Platform& platform, ByteSource& content) {
  if (content.Size() > kMaxForeignBytes) return Result<LoadedPicture>::Failed(kTooLargeFile);
  Result<Bytes> bytes = ReadAll(content);
  if (!bytes.Ok()) return Result<LoadedPicture>::Failed(bytes.Reason());
  Result<Picture> picture = platform.DecodePicture(std::move(bytes.Value()));
  if (!picture.Ok()) return Result<LoadedPicture>::Failed(picture.Reason());
  assert(IsOpaque(picture.Value().View()));
  return LoadedPicture{std::move(picture.Value())};
}

}  // namespace

Failure CatchOutOfMemory(const std::function<Failure()>& load) {
  try {
    return load();
  } catch (const std::bad_alloc&) {
    return "There is not enough memory for this picture.";
  }
}

Result<LoadedPicture> LoadPicture(Platform& platform, const std::string& path) {
  Result<LoadedPicture> picture = Result<LoadedPicture>::Failed({});
  Failure failure = CatchOutOfMemory([&]() -> Failure {
    Result<std::unique_ptr<ByteSource>> file = platform.OpenFile(path);
    if (!file.Ok()) return file.Reason();
    ByteSource& content = *file.Value();
    if (content.Size() == 0) return "The file is empty.";
    picture = IsBmp(content) ? ReadBmp(content) : DecodeForeign(platform, content);
    return {};
  });
  return failure.empty() ? std::move(picture) : Result<LoadedPicture>::Failed(std::move(failure));
}

Failure SavePicture(Platform& platform, const PictureView& picture, const std::string& path) {
  BmpEncoder file(picture);
  return platform.WriteFile(path, file);
}

}  // namespace morvane
