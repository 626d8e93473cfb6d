#pragma once

#include "platform/Platform.h"

namespace morvane {

/// A click on the odd flagstone in the About box.
inline void SecretTile_Click(Platform& platform) {
  platform.MsgBox("You found the secret tile!!", BoxStyle::OkOnly, kProgramName);
}

}  // namespace morvane
