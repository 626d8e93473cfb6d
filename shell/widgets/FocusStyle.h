#pragma once

#include <QProxyStyle>

namespace morvane {

/// The desktop's style with a clear mark on what the keys go to, also where the style itself has
/// none or a faint one: buttons, tabs, lists and drop-down lists. On dark desktops, where its own
/// edges are hard to see, fields, boxes, lists and parts of menus get clear ones.
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
