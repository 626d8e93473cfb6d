#pragma once

#include "palette/Palette.h"
#include "shell/PictureBoxView.h"

namespace morvane {

/// The map in the window, with the outline of the stamp above it. Converts mouse and key events
/// into buttons, pixels of the map and key numbers.
class CanvasView : public PictureBoxView {
  Q_OBJECT

 public:
  CanvasView(PictureBox& canvas, const Outline& Shape1, QWidget* parent);

  void ShowState();

 signals:
  /// A mouse button went down over the map, or anywhere while one that went down here is held.
  void Pressed(int Button, float X, float Y);
  /// The pointer moved over the map, or anywhere while a button that went down here is held.
  void Moved(int Button, float X, float Y);
  /// A key was pressed; the receiver sets handled.
  void KeyPressed(int Key, int Modifiers, bool& handled);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The visible outline in pixels of the widget; empty if it is hidden.
  QRegion OutlineRegion() const;

  const Outline& Shape1_;
  int pressed_ = 0;  ///< mask of the buttons that went down on the map and may still be held
  QRegion shownOutline_;
};

}  // namespace morvane
