#include "shell/widgets/WholeEntryCombo.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>

#include "shell/widgets/FittedLabel.h"

namespace morvane {

void WholeEntryCombo::paintEvent(QPaintEvent* /*event*/) {
  constexpr int kMargin = 6;
  QStyleOptionComboBox option;
  initStyleOption(&option);
  QStylePainter painter(this);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);

  const QRect arrow =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
  QRect place = rect().adjusted(kMargin, 0, 0, 0);
  place.setRight(arrow.left());
  painter.setFont(FittedFont(font(), currentText(), place.width()));
  painter.setPen(option.palette.color(QPalette::ButtonText));
  painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, currentText());
}

}  // namespace morvane
