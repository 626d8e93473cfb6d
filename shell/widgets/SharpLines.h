#pragma once

#include <QColor>
#include <QLine>
#include <QRect>

class QPainter;
class QPalette;

namespace morvane {

/// Draws a level or upright line, both ends included. It fills whole pixels of the form at every
/// scale, where a pen would lie half beside them.
void DrawSharpLine(QPainter& painter, const QLine& line, const QColor& color);

/// The same for the outline of a box; its lines lie inside.
void DrawSharpBox(QPainter& painter, const QRect& box, const QColor& color);

/// The border of a sunken picture box, 2 pixels wide.
void DrawSunkenBorder(QPainter& painter, const QRect& box, const QPalette& palette);

/// A colour for quiet lines that shows on light and dark windows.
QColor QuietLine(const QPalette& palette);

}  // namespace morvane
