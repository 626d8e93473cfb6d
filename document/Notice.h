#pragma once

#include <string>

#include "platform/Platform.h"

namespace morvane {

/// Tells the user what failed, with which file, and the system's reason.
void TellFailure(Platform& platform, const std::string& what, const std::string& file,
                 const Failure& reason);

}  // namespace morvane
