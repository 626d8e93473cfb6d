#pragma once

#include <string>

#include "document/Platform.h"

namespace morvane {

/// Reports to the user what failed, and the reason.
inline void ReportFailure(Platform& platform, const std::string& what, const Failure& reason) {
  platform.MsgBox(what + "\n\n" + reason, BoxStyle::OkExclamation, kProgramName);
}

}  // namespace morvane
