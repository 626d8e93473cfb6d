#include "palette/FileList.h"

#include <algorithm>
#include <utility>

#include "document/Settings.h"

namespace morvane {
namespace {

std::vector<FolderList::Row> PathFromRoot(const std::string& path) {
  std::vector<FolderList::Row> rows = {{.name = "/", .path = "/", .depth = 0, .isOnPath = true}};
  for (std::size_t begin = 1; begin < path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    const int depth = rows.back().depth + 1;
    rows.push_back({path.substr(begin, end - begin), path.substr(0, end), depth, true});
    begin = end + 1;
  }
  return rows;
}

}  // namespace

bool ListedFolder::SetPath(Platform& platform, const std::string& path) {
  if (!platform.IsFolderReadable(path)) return false;
  platform_ = &platform;
  path_ = path;
  isRead_ = false;
  return true;
}

const std::vector<std::string>& FileList::Files() const {
  ReadOnce([this](Platform& platform) { files_ = platform.ListFiles(Path(), Pattern); });
  return files_;
}

const std::vector<FolderList::Row>& FolderList::Rows() const {
  ReadOnce([this](Platform& platform) {
    std::vector<Row> rows = PathFromRoot(Path());
    const int depth = rows.back().depth + 1;
    for (const std::string& name : platform.ListFolders(Path())) {
      rows.push_back({name, WithTrailingBackslash(Path()) + name, depth, false});
    }
    rows_ = std::move(rows);
  });
  return rows_;
}

}  // namespace morvane
