#include "document/Rescue.h"

#include "document/PictureFile.h"

namespace morvane {

std::string WriteRescueCopy(Document& document) {
  constexpr int kMostNames = 100;
  Platform& platform = document.platform;
  for (const std::string& folder : platform.RescueFolders()) {
    const std::string stem = WithTrailingBackslash(folder) + "Morvane rescue";
    std::string path = stem + ".bmp";
    for (int i = 2; platform.FileExists(path) && i <= kMostNames; ++i) {
      path = stem + " " + std::to_string(i) + ".bmp";
    }
    if (platform.FileExists(path)) continue;
    if (SavePicture(platform, document.Canvas.Image(), path).empty()) return path;
  }
  return {};
}

}  // namespace morvane
