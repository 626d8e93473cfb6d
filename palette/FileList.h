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

  /// Shows another folder; one that doesn't exist is refused and the list stays.
  void SetPath(Platform& platform, const std::string& path);
  /// Reads the folder again.
  void Refresh(Platform& platform);

 private:
  std::string path_;
  std::vector<std::string> files_;
};

}  // namespace morvane
