#include "platform/DesktopTheme.h"

#include <QPluginLoader>

namespace morvane {
namespace {

/// Qt doesn't give the name of its platform theme. A theme may also use another's dialogs.
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
