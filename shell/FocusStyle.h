#pragma once

#include <QProxyStyle>

namespace morvane {

/// The desktop's style with a clear mark on what the keys go to, also where the style itself has
/// none or a faint one: flat and default buttons, tabs and lists.
class FocusStyle : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
};

}  // namespace morvane
