#include "document/PictureFile.h"

#include <new>
#include <utility>

#include "document/bmp/Bmp.h"

namespace morvane {
namespace {

Result<LoadedPicture> DecodeForeign(Platform& platform, ByteSource& content) {
  if (content.Size() > kMaxForeignBytes) return Failed{kTooLargeFile};
  Result<Bytes> bytes = ReadAll(content);
  if (!bytes.Ok()) return Failed{bytes.Reason()};
  Result<Picture> picture = platform.DecodePicture(std::move(bytes.Value()));
  if (!picture.Ok()) return Failed{picture.Reason()};
  return LoadedPicture{std::move(picture.Value())};
}

}  // namespace

Result<LoadedPicture> LoadPicture(Platform& platform, const std::string& path) {
  try {
    OpenedFile file = platform.OpenFile(path);
    if (!file.Ok()) return Failed{file.Reason()};
    ByteSource& content = *file.Value();
    if (content.Size() == 0) return Failed{"The file is empty."};
    return IsBmp(content) ? ReadBmp(content) : DecodeForeign(platform, content);
  } catch (const std::bad_alloc&) {
    return Failed{kOutOfMemory};
  }
}

Failure SavePicture(Platform& platform, const PictureView& picture, const std::string& path) {
  BmpEncoder file(picture);
  return platform.WriteFile(path, file);
}

}  // namespace morvane
