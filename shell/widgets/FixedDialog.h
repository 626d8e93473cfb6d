#pragma once

#include <QDialog>

namespace morvane {

/// A dialog of fixed size that is closed by its buttons or its close box. Enter presses the button
/// that has the focus, and none where no button has it.
class FixedDialog : public QDialog {
  Q_OBJECT

 public:
  FixedDialog(const char* name, const char* caption, const QSize& size, QWidget* owner);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace morvane
