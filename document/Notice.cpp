#include "document/Notice.h"

namespace morvane {

void TellFailure(Platform& platform, const std::string& what, const Failure& reason) {
  platform.MsgBox(what + "\n\n" + reason, BoxStyle::OkExclamation, kProgramName);
}

void TellFileFailure(Platform& platform, const std::string& what, const std::string& file,
                     const Failure& reason) {
  TellFailure(platform, what + "\n\n" + file, reason);
}

}  // namespace morvane
