#include "shell/CanvasView.h"

#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

#include "shell/widgets/Accessible.h"
#include "tools/Buttons.h"
#include "tools/CanvasKeyboard.h"

namespace morvane {
namespace {

constexpr QColor kOutlineColor(0, 106, 236);
constexpr int kOutlineWidth = 2;

/// Qt's buttons have the same numbers.
int ButtonMask(Qt::MouseButtons buttons) {
  return buttons.toInt() & (kLeftButton | kRightButton | kMiddleButton);
}

/// On high-DPI displays a position may have a fraction, so it is rounded down.
QPoint PixelAt(const QPointF& position) {
  return {qFloor(position.x()), qFloor(position.y())};
}

int ModifierMask(Qt::KeyboardModifiers modifiers) {
  int mask = 0;
  if (modifiers.testFlag(Qt::ShiftModifier)) mask |= kShift;
  if (modifiers.testFlag(Qt::ControlModifier)) mask |= kCtrl;
  if (modifiers.testFlag(Qt::AltModifier)) mask |= kAlt;
  return mask;
}

int KeyNumber(int key) {
  static const QHash<int, int> kNumbers = {
      {Qt::Key_Escape, kKeyEscape}, {Qt::Key_Left, kKeyLeft}, {Qt::Key_Up, kKeyUp},
      {Qt::Key_Right, kKeyRight},   {Qt::Key_Down, kKeyDown}, {Qt::Key_M, kKeyM},
      {Qt::Key_F11, kKeyF11},
  };
  return kNumbers.value(key);
}

}  // namespace

CanvasView::CanvasView(PictureBox& canvas, const Outline& Shape1, QWidget* parent)
    : PictureBoxView(canvas, parent), Shape1_(Shape1) {
  SetRole(this, QAccessible::Canvas);
  setObjectName("Canvas");
  setAccessibleName("Map");
  setFrameStyle(QFrame::WinPanel | QFrame::Sunken);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void CanvasView::ShowState() {
  PictureBoxView::ShowState();
  const QRegion outline = OutlineRegion();
  if (outline == shownOutline_) return;
  update(outline.xored(shownOutline_));
  shownOutline_ = outline;
}

void CanvasView::paintEvent(QPaintEvent* event) {
  PictureBoxView::paintEvent(event);
  QPainter painter(this);
  for (const QRect& bar : OutlineRegion() & event->region()) painter.fillRect(bar, kOutlineColor);
  const bool showsFocus = hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
  if (showsFocus && !contentsRect().contains(event->rect())) {
    painter.setClipRegion(QRegion(rect()) - contentsRect());
    painter.fillRect(rect(), palette().color(QPalette::Highlight));
  }
}

void CanvasView::mousePressEvent(QMouseEvent* event) {
  const int button = ButtonMask(event->button());
  const QPoint place = PixelAt(event->position());
  pressed_ &= ButtonMask(event->buttons()) & ~button;
  if (button == 0 || (pressed_ == 0 && !contentsRect().contains(place))) return;
  pressed_ |= button;
  const QPoint pixel = place - contentsRect().topLeft();
  emit Pressed(button, static_cast<float>(pixel.x()), static_cast<float>(pixel.y()));
}

// The second press of a double click is a press like any other.
void CanvasView::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

void CanvasView::mouseMoveEvent(QMouseEvent* event) {
  const int held = ButtonMask(event->buttons());
  const QPoint place = PixelAt(event->position());
  if (held == 0 && !contentsRect().contains(place)) return;
  const QPoint pixel = place - contentsRect().topLeft();
  emit Moved(held, static_cast<float>(pixel.x()), static_cast<float>(pixel.y()));
}

void CanvasView::keyPressEvent(QKeyEvent* event) {
  bool handled = false;
  emit KeyPressed(KeyNumber(event->key()), ModifierMask(event->modifiers()), handled);
  if (!handled) PictureBoxView::keyPressEvent(event);
}

QRegion CanvasView::OutlineRegion() const {
  if (!Shape1_.Visible) return {};
  const QRect inside = contentsRect();
  const QRect outer =
      QRect(Shape1_.Left, Shape1_.Top, Shape1_.Width, Shape1_.Height).translated(inside.topLeft());
  const QRect inner = outer.adjusted(kOutlineWidth, kOutlineWidth, -kOutlineWidth, -kOutlineWidth);
  return (QRegion(outer) - inner) & inside;
}

}  // namespace morvane
