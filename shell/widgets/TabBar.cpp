#include "shell/widgets/TabBar.h"

#include <QAccessibleWidget>
#include <vector>

namespace morvane {
namespace {

/// The accessible object of one tab.
class AccessibleTab : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessibleTab(TabBar* tabs, int index) : tabs_(tabs), index_(index) {}

  bool isValid() const override { return index_ < tabs_->count(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(tabs_);
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QRect rect() const override {
    return tabs_->tabRect(index_).translated(tabs_->mapToGlobal(QPoint()));
  }
  QAccessible::Role role() const override { return QAccessible::PageTab; }
  QString text(QAccessible::Text text) const override {
    return text == QAccessible::Name ? tabs_->tabText(index_) : QString();
  }
  void setText(QAccessible::Text /*text*/, const QString& /*value*/) override {}
  QAccessible::State state() const override {
    const bool isSelected = index_ == tabs_->currentIndex();
    QAccessible::State state = parent()->state();
    state.selectable = true;
    state.selected = isSelected;
    state.focused = isSelected && tabs_->hasFocus();
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::ActionInterface) return nullptr;
    return static_cast<QAccessibleActionInterface*>(this);
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override {
    if (name == pressAction()) tabs_->setCurrentIndex(index_);
  }
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

 private:
  TabBar* tabs_;
  int index_;
};

class AccessibleTabBar : public QAccessibleWidget {
 public:
  explicit AccessibleTabBar(TabBar* tabs)
      : QAccessibleWidget(tabs, QAccessible::PageTabList), tabs_(tabs) {}
  AccessibleTabBar(const AccessibleTabBar&) = delete;
  AccessibleTabBar& operator=(const AccessibleTabBar&) = delete;
  ~AccessibleTabBar() override {
    for (const QAccessible::Id tab : requestedIds_) QAccessible::deleteAccessibleInterface(tab);
  }

  int childCount() const override { return tabs_->count(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    for (int i = static_cast<int>(requestedIds_.size()); i <= index; ++i) {
      requestedIds_.push_back(
          QAccessible::registerAccessibleInterface(new AccessibleTab(tabs_, i)));
    }
    return QAccessible::accessibleInterface(requestedIds_[index]);
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    for (int i = 0; i < childCount(); ++i) {
      if (child(i)->rect().contains(x, y)) return child(i);
    }
    return nullptr;
  }
  int indexOfChild(const QAccessibleInterface* searched) const override {
    for (int i = 0; i < childCount(); ++i) {
      if (child(i) == searched) return i;
    }
    return -1;
  }

 private:
  TabBar* tabs_;
  mutable std::vector<QAccessible::Id> requestedIds_;  ///< of the tabs that were requested so far
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
  auto* tabs = qobject_cast<TabBar*>(object);
  return tabs != nullptr ? new AccessibleTabBar(tabs) : nullptr;
}

}  // namespace

TabBar::TabBar(QWidget* parent) : QTabBar(parent) {
  QAccessible::installFactory(&MakeAccessible);
}

void TabBar::focusInEvent(QFocusEvent* event) {
  QTabBar::focusInEvent(event);
  // Qt reports the bar next, so the selected tab is reported after it.
  QMetaObject::invokeMethod(this, &TabBar::ReportSelectedTab, Qt::QueuedConnection);
}

void TabBar::ReportSelectedTab() {
  if (!hasFocus()) return;
  QAccessibleEvent focus(this, QAccessible::Focus);
  focus.setChild(currentIndex());
  QAccessible::updateAccessibility(&focus);
}

}  // namespace morvane
