#include "shell/CanvasView.h"

#include <QMouseEvent>

#include "tools/Buttons.h"

namespace morvane {
namespace {

int ButtonNumber(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return kLeftButton;
    case Qt::RightButton:
      return kRightButton;
    case Qt::MiddleButton:
      return kMiddleButton;
    default:
      return 0;
  }
}

}  // namespace

CanvasView::CanvasView(PictureBox& canvas, QWidget* parent) : PictureBoxView(canvas, parent) {
  setObjectName("Canvas");
  setAccessibleName("Map");
  setFrameStyle(QFrame::WinPanel | QFrame::Sunken);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void CanvasView::mousePressEvent(QMouseEvent* event) {
  const int button = ButtonNumber(event->button());
  const QPoint place = event->position().toPoint();
  if (button == 0 || !contentsRect().contains(place)) return;
  const QPoint pixel = place - contentsRect().topLeft();
  emit Pressed(button, static_cast<float>(pixel.x()), static_cast<float>(pixel.y()));
}

// The second press of a double click is a press like any other.
void CanvasView::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

}  // namespace morvane
