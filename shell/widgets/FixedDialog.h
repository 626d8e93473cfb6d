#pragma once

#include <QDialog>

namespace morvane {

/// A dialog of fixed size that is closed by its buttons or its close box. Enter presses the button
/// that has the focus, else the default button, if there is one.
class FixedDialog : public QDialog {
  Q_OBJECT

 public:
  FixedDialog(const char* name, const char* caption, const QSize& size, QWidget* owner);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace morvane
