#pragma once

#include "document/Platform.h"

namespace morvane {

/// A click on the odd flagstone in the About box.
inline void SecretTile_Click(Platform& platform) {
  platform.MsgBox("You found the secret tile!!", BoxStyle::OkOnly, kProgramName);
}

}  // namespace morvane
