#pragma once

#include <string>

#include "document/Platform.h"

namespace morvane {

/// Reports to the user what failed, and the system's reason.
void ReportFailure(Platform& platform, const std::string& what, const Failure& reason);

/// The same for a failed operation on a file.
void ReportFileFailure(Platform& platform, const std::string& what, const std::string& file,
                       const Failure& reason);

}  // namespace morvane
