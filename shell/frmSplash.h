#pragma once

#include <QWidget>

namespace morvane {

/// The window that greets during start-up: a picture without a caption.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  frmSplash();

  /// Shows the window and waits until it can be seen; no event of the user is handled meanwhile.
  void ShowAtOnce();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
};

}  // namespace morvane
