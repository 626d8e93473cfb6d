#include "shell/FocusStyle.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>

namespace morvane {
namespace {

void DrawMark(QPainter* painter, const QStyleOption& option, const QRect& place, int width) {
  const QRegion inside(place.adjusted(width, width, -width, -width));
  for (const QRect& bar : QRegion(place) - inside) {
    painter->fillRect(bar, option.palette.color(QPalette::Highlight));
  }
}

bool HasKeys(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_KeyboardFocusChange) &&
         option.state.testFlag(QStyle::State_HasFocus);
}

}  // namespace

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (!HasKeys(*option)) return;
  const auto* button = qobject_cast<const QToolButton*>(widget);
  if (element == PE_FrameFocusRect && button != nullptr && button->autoRaise()) {
    DrawMark(painter, *option, button->rect(), 2);
  } else if (element == PE_Frame && qobject_cast<const QAbstractScrollArea*>(widget) != nullptr) {
    DrawMark(painter, *option, option->rect, 1);
  }
}

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  if (!HasKeys(*option)) return;
  if (element == CE_TabBarTabLabel) {
    DrawMark(painter, *option, option->rect.adjusted(3, 3, -3, -3), 2);
  } else if (element == CE_PushButton) {
    DrawMark(painter, *option, option->rect.adjusted(2, 2, -2, -2), 1);
  }
}

}  // namespace morvane
