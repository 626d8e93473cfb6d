#include "shell/widgets/FixedDialog.h"

#include <QKeyEvent>
#include <QPushButton>

namespace morvane {

FixedDialog::FixedDialog(const char* name, const char* caption, const QSize& size, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {
  setObjectName(name);
  setWindowTitle(caption);
  setFixedSize(size);
}

void FixedDialog::keyPressEvent(QKeyEvent* event) {
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && button != nullptr) {
    button->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

}  // namespace morvane
