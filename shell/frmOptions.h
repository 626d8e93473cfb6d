#pragma once

#include <functional>

#include "document/Options.h"
#include "shell/widgets/FixedDialog.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace morvane {

/// The Options dialog: two folders, two colours and the grid.
class frmOptions : public FixedDialog {
  Q_OBJECT

 public:
  frmOptions(Document& document, QWidget* owner);

 private:
  void AddFolders();
  void AddColors();
  /// A button that calls a function and then updates the fields.
  QPushButton* AddButton(QWidget* parent, const char* name, const char* text, const QRect& place,
                         const std::function<void()>& click);
  void ShowState();

  Options options_;
  QLineEdit* TextMapDir_ = nullptr;
  QLineEdit* TextCustomDir_ = nullptr;
  QWidget* ColorBox_ = nullptr;
  QWidget* GridColorBox_ = nullptr;
  QPushButton* PaletteButton_ = nullptr;
  QPushButton* GridPaletteButton_ = nullptr;
  QCheckBox* GridCheck_ = nullptr;
};

}  // namespace morvane
