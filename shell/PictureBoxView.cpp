#include "shell/PictureBoxView.h"

#include <QPaintEvent>
#include <QPainter>

#include "platform/Images.h"
#include "shell/widgets/Accessible.h"
#include "shell/widgets/SharpLines.h"

namespace morvane {

PictureBoxView::PictureBoxView(PictureBox& box, QWidget* parent) : QFrame(parent), box_(box) {}

void PictureBoxView::ShowState() {
  resize(box_.Width(), box_.Height());
  const Rect exposed = box_.TakeExposed();
  if (exposed.IsEmpty()) return;
  update(QRect(exposed.left, exposed.top, exposed.Width(), exposed.Height())
             .translated(contentsRect().topLeft()));
}

void PictureBoxView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect inside = contentsRect();
  if (!inside.contains(event->rect())) DrawSunkenBorder(painter, rect(), palette());
  PaintPicture(painter, box_.Image(), inside.topLeft(), event->rect() & inside);
}

void PictureBoxView::resizeEvent(QResizeEvent* /*event*/) {
  setAccessibleDescription(SizeDescription(contentsRect().size()));
}

void PaintPicture(QPainter& painter, const PictureView& picture, const QPoint& origin,
                  const QRect& part) {
  if (part.isEmpty()) return;
  painter.drawImage(part, ImageOver(picture), part.translated(-origin));
}

}  // namespace morvane
