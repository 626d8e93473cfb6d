#pragma once

#include <memory>
#include <vector>

#include "document/Platform.h"

namespace morvane {

/// The snapshots that earlier runs of this user left in the current directory and in the private
/// folders: regular files of a plausible size that no other process has locked. Those of another
/// size in the private folders are deleted.
std::vector<std::unique_ptr<Leftover>> LeftoverSnapshots();

}  // namespace morvane
