#pragma once

#include <QTabBar>

namespace morvane {

/// Tabs that tell assistive technology their name and which one of them is selected. The toolkit's
/// own claim to have the focus even while it is elsewhere.
class TabBar : public QTabBar {
  Q_OBJECT

 public:
  explicit TabBar(QWidget* parent);

 protected:
  void focusInEvent(QFocusEvent* event) override;

 private:
  void SpeakCurrent();
};

}  // namespace morvane
