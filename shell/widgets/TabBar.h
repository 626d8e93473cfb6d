#pragma once

#include <QTabBar>

namespace morvane {

/// Tabs with accessible names and selection state. Qt's own report the focus even if they don't
/// have it.
class TabBar : public QTabBar {
  Q_OBJECT

 public:
  explicit TabBar(QWidget* parent);

 protected:
  void focusInEvent(QFocusEvent* event) override;

 private:
  void ReportSelectedTab();
};

}  // namespace morvane
