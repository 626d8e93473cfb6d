#pragma once

#include <string>
#include <vector>

#include "platform/Platform.h"

namespace morvane {

/// The list of custom pictures in a folder, which is read when the list is first looked at.
class FileList {
 public:
  static constexpr const char* Pattern = "*.emf;*.wmf;*.cur;*.ico;*.jpg;*.gif;*.bmp;*.rle";

  const std::string& Path() const { return path_; }
  const std::vector<std::string>& Files() const;
  /// How often the folder was read: as long as that stays, so do the files.
  int Readings() const { return readings_; }

  /// Shows another folder. One that doesn't exist is refused: the list stays. Returns whether it
  /// shows.
  bool SetPath(Platform& platform, const std::string& path);
  /// Lets the folder be read again.
  void Refresh() { isRead_ = false; }

 private:
  Platform* platform_ = nullptr;
  std::string path_;
  mutable std::vector<std::string> files_;
  mutable bool isRead_ = true;
  mutable int readings_ = 0;
};

/// The list of folders: the way from the root to the present one, then what it holds. That is read
/// when the list is first looked at.
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
  const std::vector<Row>& Rows() const;
  /// How often the folder was read: as long as that stays, so do the rows.
  int Readings() const { return readings_; }

  /// Shows another folder. One that doesn't exist is refused: the list stays. Returns whether it
  /// shows.
  bool SetPath(Platform& platform, const std::string& path);

 private:
  Platform* platform_ = nullptr;
  std::string path_;
  mutable std::vector<Row> rows_;
  mutable bool isRead_ = true;
  mutable int readings_ = 0;
};

}  // namespace morvane
