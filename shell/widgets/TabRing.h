#pragma once

#include <QObject>
#include <QTimer>
#include <vector>

class QKeyEvent;
class QWidget;

namespace morvane {

/// The round of the Tab key through a window.
///
/// Controls that belong together share one stop: Tab enters their group at the control that was
/// used last, the arrow keys, Home and End move within it. Enter presses a button, as Space does.
class TabRing : public QObject {
 public:
  explicit TabRing(QObject* parent);

  /// Adds a stop behind those that there are: one control, or a group in reading order.
  void Add(const std::vector<QWidget*>& group);
  /// Moves the focus from one control to the next stop, or to the one before.
  bool Move(const QWidget* from, bool next);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Stop {
    std::vector<QWidget*> group;
    QWidget* last;  ///< used last
  };

  Stop* StopOf(const QObject* control);
  bool PressKey(QWidget* control, const QKeyEvent& event);

  std::vector<Stop> stops_;
  /// A button that shows only a picture names itself when keys rest on it, as under the mouse.
  QTimer rest_;
};

}  // namespace morvane
