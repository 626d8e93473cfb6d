#include "shell/PictureBoxView.h"

#include <QPaintEvent>
#include <QPainter>

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
  if (!inside.contains(event->rect())) drawFrame(&painter);
  PaintPicture(painter, box_.Image(), inside.topLeft(), event->rect() & inside);
}

void PaintPicture(QPainter& painter, const PictureView& picture, const QPoint& origin,
                  const QRect& part) {
  if (part.isEmpty()) return;
  const QImage image(reinterpret_cast<const uchar*>(picture.pixels), picture.width, picture.height,
                     picture.stride * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32);
  painter.drawImage(part, image, part.translated(-origin));
}

}  // namespace morvane
