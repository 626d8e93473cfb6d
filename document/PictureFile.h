#pragma once

#include <cstddef>
#include <string>

#include "document/Platform.h"
#include "document/picture/Picture.h"

namespace morvane {

/// The largest file that is read, in bytes, if its format isn't BMP. Such files are loaded into
/// memory completely.
inline constexpr std::size_t kMaxForeignBytes = 256'000'000;

inline constexpr const char* kOutOfMemory = "There is not enough memory for this picture.";

/// Loads a picture from an image file of any supported format, which is detected by the content.
/// Running out of memory is a failure like any other.
Result<LoadedPicture> LoadPicture(Platform& platform, const std::string& path);

/// Writes the picture as a BMP file. If that fails, an existing file is unchanged.
Failure SavePicture(Platform& platform, const PictureView& picture, const std::string& path);

}  // namespace morvane
