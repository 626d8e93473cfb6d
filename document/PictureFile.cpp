#include "document/PictureFile.h"

#include <new>

#include "document/Bmp.h"

namespace morvane {

Result<Picture> WithinMemory(const std::function<Result<Picture>()>& load) {
  try {
    return load();
  } catch (const std::bad_alloc&) {
    return Result<Picture>::Failed("There is not enough memory for this picture.");
  }
}

Result<Picture> LoadPicture(Platform& platform, const std::string& path) {
  return WithinMemory([&] {
    Result<Bytes> content = platform.ReadFile(path);
    if (!content.Ok()) return Result<Picture>::Failed(content.Reason());
    if (content.Value().empty()) return Result<Picture>::Failed("The file is empty.");
    return IsBmp(content.Value()) ? ReadBmp(content.Value())
                                  : platform.DecodePicture(content.Value());
  });
}

Failure SavePicture(Platform& platform, const PictureView& picture, const std::string& path) {
  return platform.WriteFile(path, WriteBmp(picture));
}

}  // namespace morvane
