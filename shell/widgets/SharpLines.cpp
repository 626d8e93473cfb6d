#include "shell/widgets/SharpLines.h"

#include <QPainter>
#include <QPalette>
#include <algorithm>

namespace morvane {
namespace {

/// Upper and left line in one colour, lower and right line in the other.
void DrawShades(QPainter& painter, const QRect& box, const QColor& upper, const QColor& lower) {
  DrawSharpBox(painter, box, lower);
  DrawSharpLine(painter, {box.topLeft(), box.topRight() - QPoint(1, 0)}, upper);
  DrawSharpLine(painter, {box.topLeft(), box.bottomLeft() - QPoint(0, 1)}, upper);
}

}  // namespace

void DrawSharpLine(QPainter& painter, const QLine& line, const QColor& color) {
  const QPoint first(std::min(line.x1(), line.x2()), std::min(line.y1(), line.y2()));
  const QPoint last(std::max(line.x1(), line.x2()), std::max(line.y1(), line.y2()));
  painter.fillRect(QRect(first, last), color);
}

void DrawSharpBox(QPainter& painter, const QRect& box, const QColor& color) {
  for (const QLine& side :
       {QLine(box.topLeft(), box.topRight()), QLine(box.bottomLeft(), box.bottomRight()),
        QLine(box.topLeft(), box.bottomLeft()), QLine(box.topRight(), box.bottomRight())}) {
    DrawSharpLine(painter, side, color);
  }
}

void DrawSunkenBorder(QPainter& painter, const QRect& box, const QPalette& palette) {
  DrawShades(painter, box, palette.color(QPalette::Dark), palette.color(QPalette::Light));
  DrawShades(painter, box.adjusted(1, 1, -1, -1), palette.color(QPalette::Shadow),
             palette.color(QPalette::Midlight));
}

QColor SubtleLineColor(const QPalette& palette) {
  constexpr int kPercent = 77;  // percent of the ground
  const QColor ground = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  const auto mixed = [](int one, int other) {
    return (one * kPercent + other * (100 - kPercent)) / 100;
  };
  return {mixed(ground.red(), text.red()), mixed(ground.green(), text.green()),
          mixed(ground.blue(), text.blue())};
}

}  // namespace morvane
