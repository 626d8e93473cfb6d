#pragma once

#include <string>
#include <vector>

namespace morvane {

/// Whether there is a folder whose names can be listed and whose files can be opened.
bool IsReadableFolder(const std::string& path);

/// The names of the folders in a folder, in natural order.
std::vector<std::string> FoldersIn(const std::string& folder);

/// The mount points of disks and network folders, the root first.
std::vector<std::string> MountedVolumes();

/// The names of the files in a folder that match one of "*.a;*.b", case ignored, in natural order.
std::vector<std::string> MatchingFiles(const std::string& folder, const std::string& pattern);

}  // namespace morvane
