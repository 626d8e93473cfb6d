#include "shell/widgets/FittedLabel.h"

#include <algorithm>

#include "shell/widgets/Text.h"

namespace morvane {

QFont FittedFont(const QFont& font, const QString& text, int width) {
  constexpr int kNarrowest = 70;  // percent
  const int needed = QFontMetrics(font).horizontalAdvance(text);
  QFont fitted = font;
  // Glyph widths are rounded to pixels, so a little less than the ratio is needed.
  if (needed > width) fitted.setStretch(std::max(kNarrowest, 100 * width / needed - 3));
  return fitted;
}

void FittedLabel::ShowText(const QString& text) {
  if (accessibleName() == text) return;
  QFont plain = font();
  plain.setStretch(QFont::Unstretched);
  const QFont fitted = FittedFont(plain, text, visibleWidth_);
  setFont(fitted);
  setText(QFontMetrics(fitted).elidedText(text, Qt::ElideRight, visibleWidth_));
  setToolTip(ToolTipOf(text));
  setAccessibleName(text);
}

}  // namespace morvane
