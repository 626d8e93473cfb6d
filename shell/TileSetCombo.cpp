#include "shell/TileSetCombo.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <algorithm>

namespace morvane {

void TileSetCombo::paintEvent(QPaintEvent* /*event*/) {
  constexpr int kMargin = 6;
  constexpr int kNarrowest = 75;  // percent
  QStyleOptionComboBox option;
  initStyleOption(&option);
  QStylePainter painter(this);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);

  const QRect arrow =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
  QRect place = rect().adjusted(kMargin, 0, 0, 0);
  place.setRight(arrow.left());
  const int needed = fontMetrics().horizontalAdvance(currentText());
  QFont narrow = font();
  if (needed > place.width()) narrow.setStretch(std::max(kNarrowest, 100 * place.width() / needed));
  painter.setFont(narrow);
  painter.setPen(option.palette.color(QPalette::ButtonText));
  painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, currentText());
}

}  // namespace morvane
