#pragma once

#include "shell/PictureBoxView.h"

namespace morvane {

/// The map in the window. Turns mouse events into a button and a pixel of the map.
class CanvasView : public PictureBoxView {
  Q_OBJECT

 public:
  CanvasView(PictureBox& canvas, QWidget* parent);

 signals:
  /// A mouse button went down over the map.
  void Pressed(int Button, float X, float Y);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace morvane
