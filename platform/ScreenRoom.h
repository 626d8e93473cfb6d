#pragma once

#include <QSize>

class QWidget;

namespace morvane {

/// The largest content size that a window can have on its screen, without panels and its frame.
QSize ScreenRoomOf(const QWidget& window);

}  // namespace morvane
