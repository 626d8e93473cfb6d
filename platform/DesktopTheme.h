#pragma once

namespace morvane {

/// Whether the desktop's file dialogs are those of GTK.
bool HasGtkDialogs();

/// Whether the desktop's file dialogs are those of its portal. They ignore the start folder, ask
/// before a file is replaced, and never return if the portal's process ends.
bool HasPortalDialogs();

}  // namespace morvane
