#pragma once

#include <string>
#include <vector>

#include "platform/SystemFiles.h"

namespace morvane {

/// The folders in which this user's runs keep what the next run has to find, best first: one for
/// the state of programs, and one for temporary files. They need not exist.
std::vector<std::string> PrivateFolders();

/// Opens such a folder. Not open where it is missing, is a link, or others could write to it.
Descriptor OpenPrivateFolder(const std::string& path);

/// The same for a folder that is made where it is missing.
Descriptor MakePrivateFolder(const std::string& path);

/// The names in an open folder that begin in this way.
std::vector<std::string> NamesIn(const Descriptor& folder, const std::string& beginning);

}  // namespace morvane
