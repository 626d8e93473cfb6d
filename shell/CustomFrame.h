#pragma once

#include <QGroupBox>

#include "palette/Palette.h"

class QComboBox;
class QLabel;
class QListWidget;

namespace morvane {

/// The frame "Custom Tiles" in the place of the palette pages.
class CustomFrame : public QGroupBox {
  Q_OBJECT

 public:
  CustomFrame(const Palette& palette, QWidget* window);

  void ShowState();

  /// The list of files, over which no outline belongs on the map.
  QWidget* File1() const;

 private:
  const Palette& palette_;
  QComboBox* drive_;
  QLabel* dimensions_;
  QListWidget* folders_;
  QListWidget* files_;
};

}  // namespace morvane
