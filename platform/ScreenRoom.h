#pragma once

#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace morvane {

/// The largest content size that a window can have on its screen, without panels and its frame.
inline QSize ScreenRoomOf(const QWidget& window) {
  const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const int border = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  return window.screen()->availableSize() - QSize(2 * border, titleBar + border);
}

}  // namespace morvane
