#include "shell/widgets/GroupFrame.h"

#include <QPainter>

#include "shell/widgets/SharpLines.h"

namespace morvane {

void GroupFrame::paintEvent(QPaintEvent* /*event*/) {
  constexpr int kTitleLeft = 8;
  constexpr int kGap = 3;
  QPainter painter(this);
  const QFontMetrics metrics = fontMetrics();
  const QRect text(kTitleLeft, 0, metrics.horizontalAdvance(title().trimmed()), metrics.height());
  const int middle = text.height() / 2;
  painter.drawText(text, Qt::AlignCenter, title().trimmed());
  painter.setClipRegion(QRegion(rect()) - text.adjusted(-kGap, 0, kGap, 0));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(SubtleLineColor(palette()));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, middle + 0.5, -0.5, -0.5), 2, 2);
}

}  // namespace morvane
