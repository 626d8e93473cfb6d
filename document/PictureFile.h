#pragma once

#include <cstddef>
#include <string>

#include "document/Platform.h"
#include "document/picture/Picture.h"

namespace morvane {

/// The largest file of a format other than BMP that is read. Such a file is loaded into memory as a
/// whole.
inline constexpr std::size_t kMaxForeignBytes = 256'000'000;

inline constexpr const char* kOutOfMemory = "There is not enough memory for this picture.";

/// Loads a picture from an image file of any known format. Running out of memory is a failure like
/// any other.
Result<LoadedPicture> LoadPicture(Platform& platform, const std::string& path);

/// Writes the picture as a BMP file, replacing the file as a whole or not at all.
Failure SavePicture(Platform& platform, const PictureView& picture, const std::string& path);

}  // namespace morvane
