#include "document/PictureFile.h"

#include <new>

#include "document/Bmp.h"
#include "document/ByteSources.h"

namespace morvane {

namespace {

Result<Picture> DecodeForeign(Platform& platform, ByteSource& content) {
  Result<Bytes> bytes = ReadAll(content);
  return bytes.Ok() ? platform.DecodePicture(bytes.Value())
                    : Result<Picture>::Failed(bytes.Reason());
}

}  // namespace

Result<Picture> WithinMemory(const std::function<Result<Picture>()>& load) {
  try {
    return load();
  } catch (const std::bad_alloc&) {
    return Result<Picture>::Failed("There is not enough memory for this picture.");
  }
}

Result<Picture> LoadPicture(Platform& platform, const std::string& path) {
  return WithinMemory([&] {
    Result<std::unique_ptr<ByteSource>> file = platform.OpenFile(path);
    if (!file.Ok()) return Result<Picture>::Failed(file.Reason());
    ByteSource& content = *file.Value();
    if (content.Size() == 0) return Result<Picture>::Failed("The file is empty.");
    return IsBmp(content) ? ReadBmp(content) : DecodeForeign(platform, content);
  });
}

Failure SavePicture(Platform& platform, const PictureView& picture, const std::string& path) {
  BmpEncoder file(picture);
  return platform.WriteFile(path, file);
}

}  // namespace morvane
