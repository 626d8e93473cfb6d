#pragma once

#include <QProxyStyle>

namespace morvane {

/// The desktop's style with a clear focus indicator on buttons, tabs, lists and drop-down lists. On
/// dark desktops fields, check boxes, lists and menu separators also get visible lines.
class FocusStyle : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl element, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
};

}  // namespace morvane
