#pragma once

#include <QObject>
#include <vector>

#include "palette/Palette.h"

class QComboBox;
class QLabel;
class QToolButton;

namespace morvane {

class FittedLabel;
class PictureBoxView;
class TabRing;

/// Mode box, selected tile box, stamp box and tile set row.
class LeftColumn : public QObject {
  Q_OBJECT

 public:
  LeftColumn(Palette& palette, QWidget* window);

  void ShowState();
  void AddStops(TabRing& ring) const;

 signals:
  /// An entry of the selector was chosen, possibly the current one. Indices count from 0.
  void TileSetChosen(int ListIndex);
  /// One of the five buttons was clicked; the name is its object name.
  void ButtonClicked(const QString& name);

 private:
  void AddModeBox(QWidget* window);
  void AddStampBox(QWidget* window);
  void AddTileSetRow(QWidget* window);
  QToolButton* AddButton(QWidget* window, const char* name, const char* toolTip, const char* icon,
                         const QPoint& corner);

  Palette& palette_;
  QToolButton* wallButton_ = nullptr;
  QLabel* mode_ = nullptr;
  FittedLabel* tile_ = nullptr;
  PictureBoxView* stamp_ = nullptr;
  std::vector<QWidget*> buttons_;
  QComboBox* tileSet_ = nullptr;
};

}  // namespace morvane
