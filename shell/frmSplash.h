#pragma once

#include <QElapsedTimer>
#include <QWidget>

namespace morvane {

/// The splash window: a picture without a title bar.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  frmSplash();

  /// Shows the window and waits until it is visible, without handling user events.
  void ShowAtOnce();
  /// Waits until the window has been visible long enough, and closes it.
  void CloseWhenSeen();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
  QElapsedTimer shown_;  ///< started when the window became visible
};

}  // namespace morvane
