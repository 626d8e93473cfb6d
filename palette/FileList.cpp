#include "palette/FileList.h"

#include <algorithm>

#include "document/Settings.h"

namespace morvane {

bool FileList::SetPath(Platform& platform, const std::string& path) {
  if (path.empty() || !platform.FolderExists(path)) return false;
  path_ = path;
  Refresh(platform);
  return true;
}

void FileList::Refresh(Platform& platform) {
  files_ = platform.ListFiles(path_, Pattern);
}

bool FolderList::SetPath(Platform& platform, const std::string& path) {
  if (path.empty() || !platform.FolderExists(path)) return false;
  path_ = path;
  rows_ = {{.name = "/", .path = "/", .depth = 0, .isOnTheWay = true}};
  for (std::size_t begin = 1; begin < path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    const int depth = rows_.back().depth + 1;
    rows_.push_back({path.substr(begin, end - begin), path.substr(0, end), depth, true});
    begin = end + 1;
  }
  const int depth = rows_.back().depth + 1;
  for (const std::string& name : platform.ListFolders(path)) {
    rows_.push_back({name, WithTrailingBackslash(path) + name, depth, false});
  }
  return true;
}

}  // namespace morvane
