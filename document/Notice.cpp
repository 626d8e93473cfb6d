#include "document/Notice.h"

namespace morvane {

void TellFailure(Platform& platform, const std::string& what, const std::string& file,
                 const Failure& reason) {
  std::string text = what;
  if (!file.empty()) text += "\n\n" + file;
  platform.MsgBox(text + "\n\n" + reason, BoxStyle::OkExclamation, kProgramName);
}

}  // namespace morvane
