#include "palette/FileList.h"

#include <algorithm>

#include "document/Settings.h"

namespace morvane {

bool FileList::SetPath(Platform& platform, const std::string& path) {
  if (path.empty() || !platform.FolderExists(path)) return false;
  platform_ = &platform;
  path_ = path;
  isRead_ = false;
  return true;
}

const std::vector<std::string>& FileList::Files() const {
  if (isRead_ || platform_ == nullptr) return files_;
  isRead_ = true;
  ++readings_;
  files_ = platform_->ListFiles(path_, Pattern);
  return files_;
}

bool FolderList::SetPath(Platform& platform, const std::string& path) {
  if (path.empty() || !platform.FolderExists(path)) return false;
  platform_ = &platform;
  path_ = path;
  isRead_ = false;
  return true;
}

const std::vector<FolderList::Row>& FolderList::Rows() const {
  if (isRead_ || platform_ == nullptr) return rows_;
  isRead_ = true;
  ++readings_;
  rows_ = {{.name = "/", .path = "/", .depth = 0, .isOnTheWay = true}};
  for (std::size_t begin = 1; begin < path_.size();) {
    const std::size_t end = std::min(path_.find('/', begin), path_.size());
    const int depth = rows_.back().depth + 1;
    rows_.push_back({path_.substr(begin, end - begin), path_.substr(0, end), depth, true});
    begin = end + 1;
  }
  const int depth = rows_.back().depth + 1;
  for (const std::string& name : platform_->ListFolders(path_)) {
    rows_.push_back({name, WithTrailingBackslash(path_) + name, depth, false});
  }
  return rows_;
}

}  // namespace morvane
