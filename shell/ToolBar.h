#pragma once

#include <QToolBar>
#include <vector>

namespace morvane {

/// Nine buttons and three separators at the top edge, each with its key as object name.
class ToolBar : public QToolBar {
  Q_OBJECT

 public:
  explicit ToolBar(QWidget* parent);

  void SetUndoEnabled(bool enabled);

  /// From left to right, without the separators.
  const std::vector<QWidget*>& Buttons() const { return buttons_; }

 signals:
  /// A button was clicked; the name is that of its menu entry.
  void Chosen(const QString& name);

 private:
  QAction* undo_ = nullptr;
  std::vector<QWidget*> buttons_;
};

}  // namespace morvane
