#include "document/FailureReport.h"

namespace morvane {

void ReportFailure(Platform& platform, const std::string& what, const Failure& reason) {
  platform.MsgBox(what + "\n\n" + reason, BoxStyle::OkExclamation, kProgramName);
}

void ReportFileFailure(Platform& platform, const std::string& what, const std::string& file,
                       const Failure& reason) {
  ReportFailure(platform, what + "\n\n" + file, reason);
}

}  // namespace morvane
