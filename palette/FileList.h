#pragma once

#include <string>
#include <vector>

#include "document/Platform.h"

namespace morvane {

/// A folder shown in a list. It is read when the list is first used.
class ListedFolder {
 public:
  const std::string& Path() const { return path_; }
  /// Counts how often the folder was read. While it stays the same, so does the list.
  int ReadCount() const { return readCount_; }

  /// Shows another folder. If it can't be read, returns false and keeps the list.
  bool SetPath(Platform& platform, const std::string& path);
  /// Reads the folder again at the next use.
  void Refresh() { isRead_ = false; }

 protected:
  /// Calls read with the platform, unless the folder was read already.
  template <typename Read>
  void ReadOnce(Read read) const {
    if (isRead_ || platform_ == nullptr) return;
    read(*platform_);
    isRead_ = true;
    ++readCount_;
  }

 private:
  Platform* platform_ = nullptr;
  std::string path_;
  mutable bool isRead_ = false;
  mutable int readCount_ = 0;
};

/// The list of custom pictures in a folder.
class FileList : public ListedFolder {
 public:
  static constexpr const char* Pattern = "*.emf;*.wmf;*.cur;*.ico;*.jpg;*.gif;*.bmp;*.rle";

  const std::vector<std::string>& Files() const;

 private:
  mutable std::vector<std::string> files_;
};

/// The list of folders: those from the root down to the current one, then its subfolders.
class FolderList : public ListedFolder {
 public:
  struct Row {
    std::string name;
    std::string path;
    int depth;  ///< below the root
    bool isOnPath;
  };

  const std::vector<Row>& Rows() const;

 private:
  mutable std::vector<Row> rows_;
};

}  // namespace morvane
