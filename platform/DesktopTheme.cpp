#include "platform/DesktopTheme.h"

#include <QPluginLoader>

namespace morvane {
namespace {

/// Qt doesn't give the name of its platform theme. The portal's theme loads the desktop's as well,
/// so both plugins may be loaded.
bool IsThemeLoaded(const char* plugin) {
  return QPluginLoader(plugin).isLoaded();
}

}  // namespace

bool HasGtkDialogs() {
  return IsThemeLoaded("platformthemes/libqgtk3") && !HasPortalDialogs();
}

bool HasPortalDialogs() {
  return IsThemeLoaded("platformthemes/libqxdgdesktopportal");
}

}  // namespace morvane
