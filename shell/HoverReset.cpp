#include "shell/HoverReset.h"

#include <QEvent>
#include <QWidget>

namespace morvane {

void HoverReset::Watch(QWidget* control) {
  WatchAlone(control);
  for (QWidget* held : control->findChildren<QWidget*>()) WatchAlone(held);
}

void HoverReset::WatchAlone(QWidget* control) {
  control->setMouseTracking(true);
  control->installEventFilter(this);
}

bool HoverReset::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::MouseMove) emit Moved();
  return false;
}

}  // namespace morvane
