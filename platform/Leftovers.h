#pragma once

#include <memory>
#include <vector>

#include "document/Platform.h"

namespace morvane {

/// The snapshots that earlier runs of this user left in the current directory and in the private
/// folders. Only regular files of a plausible size that no other process holds.
std::vector<std::unique_ptr<Leftover>> LeftoverSnapshots();

}  // namespace morvane
