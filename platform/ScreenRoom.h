#pragma once

#include <QSize>

class QWidget;

namespace morvane {

/// The largest inside that a window can have on its screen beside panels and its own frame.
QSize ScreenRoomOf(const QWidget& window);

}  // namespace morvane
