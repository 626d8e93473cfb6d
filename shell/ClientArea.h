#pragma once

#include <QWidget>

namespace morvane {

/// The inside of the main window, with the lines that form the boxes of the left column.
class ClientArea : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 signals:
  void Resized();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace morvane
