#pragma once

namespace morvane {

/// Whether the desktop's file dialogs are those of GTK.
bool HasGtkDialogs();

/// Whether the desktop's file dialogs are those of its portal. They lose the folder to start in,
/// ask before a file is replaced, and never answer if the portal's process ends.
bool HasPortalDialogs();

}  // namespace morvane
