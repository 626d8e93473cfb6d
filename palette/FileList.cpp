#include "palette/FileList.h"

namespace morvane {

void FileList::SetPath(Platform& platform, const std::string& path) {
  if (path.empty() || !platform.FolderExists(path)) return;
  path_ = path;
  Refresh(platform);
}

void FileList::Refresh(Platform& platform) {
  files_ = platform.ListFiles(path_, Pattern);
}

}  // namespace morvane
