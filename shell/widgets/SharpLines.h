#pragma once

#include <QColor>
#include <QLine>
#include <QRect>

class QPainter;
class QPalette;

namespace morvane {

/// Draws a line to the right or downwards, both ends included. It fills whole pixels at every
/// scale, unlike a pen.
void DrawSharpLine(QPainter& painter, const QLine& line, const QColor& color);

/// The same for the outline of a box; its lines lie inside.
void DrawSharpBox(QPainter& painter, const QRect& box, const QColor& color, int width = 1);

/// The border of a sunken picture box, 2 pixels wide.
void DrawSunkenBorder(QPainter& painter, const QRect& box, const QPalette& palette);

/// A subdued line colour that is visible on light and dark windows.
QColor SubtleLineColor(const QPalette& palette);

}  // namespace morvane
