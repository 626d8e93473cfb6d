#pragma once

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
  static QPushButton* AddButton(QWidget* parent, const char* name, const char* text,
                                const QRect& place);
  /// A button that runs an event of the options.
  QPushButton* AddButton(QWidget* parent, const char* name, const char* text, const QRect& place,
                         void (Options::*click)());
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
