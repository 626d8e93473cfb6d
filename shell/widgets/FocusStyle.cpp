#include "shell/widgets/FocusStyle.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>

#include "shell/widgets/SharpLines.h"

namespace morvane {
namespace {

void DrawFocusMark(QPainter* painter, const QStyleOption& option, const QRect& place, int width) {
  DrawSharpBox(*painter, place, option.palette.color(QPalette::Highlight), width);
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

bool HasKeyboardFocus(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_KeyboardFocusChange) &&
         option.state.testFlag(QStyle::State_HasFocus);
}

}  // namespace

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool isList =
      element == PE_Frame && qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
  const bool isField = (element == PE_PanelLineEdit && !option->state.testFlag(State_HasFocus)) ||
                       element == PE_IndicatorCheckBox;
  if ((isList || isField) && IsDark(option->palette)) {
    DrawSharpBox(*painter, option->rect, SubtleLineColor(option->palette));
  }
  if (!HasKeyboardFocus(*option)) return;
  if (element == PE_FrameFocusRect && qobject_cast<const QToolButton*>(widget) != nullptr) {
    DrawFocusMark(painter, *option, widget->rect(), 2);
  } else if (isList) {
    DrawFocusMark(painter, *option, option->rect, 1);
  }
}

void FocusStyle::drawComplexControl(ComplexControl element, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(element, option, painter, widget);
  if (element == CC_ComboBox && HasKeyboardFocus(*option)) {
    DrawFocusMark(painter, *option, option->rect.adjusted(1, 1, -1, -1), 2);
  }
}

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (entry != nullptr && entry->menuItemType == QStyleOptionMenuItem::Separator &&
      IsDark(entry->palette)) {
    const int y = entry->rect.center().y();
    DrawSharpLine(*painter, {entry->rect.left() + 5, y, entry->rect.right() - 5, y},
                  SubtleLineColor(entry->palette));
  }
  if (!HasKeyboardFocus(*option)) return;
  if (element == CE_TabBarTabLabel) {
    DrawFocusMark(painter, *option, option->rect.adjusted(3, 3, -3, -3), 2);
  } else if (element == CE_PushButton) {
    DrawFocusMark(painter, *option, option->rect.adjusted(2, 2, -2, -2), 1);
  }
}

}  // namespace morvane
