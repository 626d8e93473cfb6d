#include "shell/widgets/SharpLines.h"

#include <QPainter>
#include <QPalette>

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
  painter.fillRect(QRect(line.p1(), line.p2()), color);
}

void DrawSharpBox(QPainter& painter, const QRect& box, const QColor& color, int width) {
  const QRegion inside(box.adjusted(width, width, -width, -width));
  for (const QRect& bar : QRegion(box) - inside) painter.fillRect(bar, color);
}

void DrawSunkenBorder(QPainter& painter, const QRect& box, const QPalette& palette) {
  DrawShades(painter, box, palette.color(QPalette::Dark), palette.color(QPalette::Light));
  DrawShades(painter, box.adjusted(1, 1, -1, -1), palette.color(QPalette::Shadow),
             palette.color(QPalette::Midlight));
}

QColor SubtleLineColor(const QPalette& palette) {
  constexpr int kPercent = 77;  // of the background
  const QColor background = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  const auto mixed = [](int back, int fore) {
    return (back * kPercent + fore * (100 - kPercent)) / 100;
  };
  return {mixed(background.red(), text.red()), mixed(background.green(), text.green()),
          mixed(background.blue(), text.blue())};
}

}  // namespace morvane
