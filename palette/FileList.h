#pragma once

#include <string>
#include <vector>

#include "platform/Platform.h"

namespace morvane {

/// The list of custom pictures in a folder.
class FileList {
 public:
  static constexpr const char* Pattern = "*.emf;*.wmf;*.cur;*.ico;*.jpg;*.gif;*.bmp;*.rle";

  const std::string& Path() const { return path_; }
  const std::vector<std::string>& Files() const { return files_; }

  /// Shows another folder. One that doesn't exist is refused: the list stays. Returns whether it
  /// shows.
  bool SetPath(Platform& platform, const std::string& path);
  /// Reads the folder again.
  void Refresh(Platform& platform);

 private:
  std::string path_;
  std::vector<std::string> files_;
};

/// The list of folders: the way from the root to the present one, then what it holds.
class FolderList {
 public:
  struct Row {
    std::string name;
    std::string path;
    int depth;  ///< below the root
    bool isOnTheWay;
    friend bool operator==(const Row&, const Row&) = default;
  };

  const std::string& Path() const { return path_; }
  const std::vector<Row>& Rows() const { return rows_; }

  /// Shows another folder. One that doesn't exist is refused: the list stays. Returns whether it
  /// shows.
  bool SetPath(Platform& platform, const std::string& path);

 private:
  std::string path_;
  std::vector<Row> rows_;
};

}  // namespace morvane
