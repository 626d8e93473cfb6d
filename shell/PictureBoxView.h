#pragma once

#include <QFrame>

#include "document/picture/PictureBox.h"

namespace morvane {

/// Shows the image of a picture box, pixel for pixel, and tells assistive technology its size.
class PictureBoxView : public QFrame {
 public:
  PictureBoxView(PictureBox& box, QWidget* parent);

  /// Takes the size of the box and repaints the area that has changed.
  void ShowState();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  PictureBox& box_;
};

/// Paints a part of a widget with a picture whose top left corner is at the origin.
void PaintPicture(QPainter& painter, const PictureView& picture, const QPoint& origin,
                  const QRect& part);

}  // namespace morvane
