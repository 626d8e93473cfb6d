#include "shell/ClientArea.h"

#include <QPainter>
#include <array>

#include "shell/widgets/Layout.h"
#include "shell/widgets/SharpLines.h"

namespace morvane {
namespace {

constexpr QLine LineOf(int x1, int y1, int x2, int y2) {
  return {Px(x1), Px(y1), Px(x2), Px(y2)};
}

constexpr std::array<QLine, 6> kLines = {
    LineOf(60, 480, 2400, 480),    LineOf(60, 1200, 2415, 1200),   LineOf(60, 2325, 2400, 2325),
    LineOf(1200, 480, 1200, 1200), LineOf(1800, 1200, 1800, 2325), LineOf(720, 1200, 720, 2325),
};

}  // namespace

void ClientArea::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  for (const QLine& line : kLines) DrawSharpLine(painter, line, SubtleLineColor(palette()));
}

void ClientArea::resizeEvent(QResizeEvent* /*event*/) {
  emit Resized();
}

}  // namespace morvane
