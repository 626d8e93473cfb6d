#pragma once

#include <QDialog>

#include "document/Options.h"

class QCheckBox;
class QLineEdit;

namespace morvane {

/// The Options dialog: two folders, two colours and the grid.
class frmOptions : public QDialog {
  Q_OBJECT

 public:
  frmOptions(Document& document, QWidget* owner);

 private:
  void AddFolders();
  void AddColors();
  void AddButtons();
  void ShowState();

  Options options_;
  QLineEdit* TextMapDir_ = nullptr;
  QLineEdit* TextCustomDir_ = nullptr;
  QWidget* ColorBox_ = nullptr;
  QWidget* GridColorBox_ = nullptr;
  QCheckBox* GridCheck_ = nullptr;
};

}  // namespace morvane
