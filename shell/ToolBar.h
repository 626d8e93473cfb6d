#pragma once

#include <QToolBar>

namespace morvane {

/// The twelve buttons at the top edge; each has its key as object name.
class ToolBar : public QToolBar {
  Q_OBJECT

 public:
  explicit ToolBar(QWidget* parent);

  /// Button 7.
  void SetUndoEnabled(bool enabled);

 signals:
  void ButtonClicked(const QString& key);

 private:
  QAction* undo_ = nullptr;
};

}  // namespace morvane
