#include "shell/HoverReset.h"

#include <QEvent>
#include <QWidget>

namespace morvane {

void HoverReset::Watch(QWidget* control) {
  WatchWithoutChildren(control);
  for (QWidget* held : control->findChildren<QWidget*>()) WatchWithoutChildren(held);
}

void HoverReset::WatchWithoutChildren(QWidget* control) {
  control->setMouseTracking(true);
  control->installEventFilter(this);
}

bool HoverReset::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::MouseMove) emit Moved();
  return false;
}

}  // namespace morvane
