#pragma once

#include <QFontDialog>

class QComboBox;

namespace morvane {

/// The font dialog with a colour beside the effects.
class FontDialog : public QFontDialog {
  Q_OBJECT

 public:
  explicit FontDialog(QWidget* owner);

  QColor Color() const;

 private:
  QComboBox* colors_;
};

}  // namespace morvane
