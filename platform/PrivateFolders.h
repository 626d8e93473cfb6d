#pragma once

#include <string>
#include <vector>

#include "platform/SystemFiles.h"

namespace morvane {

/// The folders for files that the next run of this user has to find, best first: one for program
/// state, and one for temporary files. They may not exist.
std::vector<std::string> PrivateFolders();

/// Opens such a folder. The result is not open if the folder is missing, is a link, or is writable
/// by others.
Descriptor OpenPrivateFolder(const std::string& path);

/// The same, but creates a missing folder.
Descriptor MakePrivateFolder(const std::string& path);

/// The names in an open folder with this prefix.
std::vector<std::string> NamesIn(const Descriptor& folder, const std::string& prefix);

}  // namespace morvane
