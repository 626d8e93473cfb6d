#pragma once

#include "shell/widgets/TabBar.h"

namespace morvane {

/// A row of tabs over an empty pane. The pages on it are not its children.
class TabStrip : public QWidget {
  Q_OBJECT

 public:
  TabStrip(const QStringList& captions, QWidget* parent);

  /// Selects a tab; tabs count from 1.
  void SelectTab(int index) { tabs_->setCurrentIndex(index - 1); }

  QWidget* Tabs() const { return tabs_; }

 signals:
  /// Another tab was chosen; tabs count from 1.
  void TabChosen(int index);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  TabBar* tabs_;
};

}  // namespace morvane
