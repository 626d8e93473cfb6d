#include "platform/ScreenRoom.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace morvane {

QSize ScreenRoomOf(const QWidget& window) {
  const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  return window.screen()->availableSize() - QSize(0, titleBar);
}

}  // namespace morvane
