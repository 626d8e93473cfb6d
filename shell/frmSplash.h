#pragma once

#include <QWidget>

namespace morvane {

/// The splash window: a picture without a title bar.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  frmSplash();

  /// Shows the window and waits until it is visible, without handling user events.
  void ShowAtOnce();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
};

}  // namespace morvane
