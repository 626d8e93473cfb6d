#pragma once

#include <QObject>
#include <QTimer>
#include <vector>

class QKeyEvent;
class QWidget;

namespace morvane {

/// The tab order of a window.
///
/// A group of controls is one tab stop: Tab enters it at the control that was used last; the arrow
/// keys, Home and End move within it. Enter presses a button, as Space does.
class TabRing : public QObject {
 public:
  explicit TabRing(QObject* parent);

  /// Appends a tab stop: one control, or a group in reading order.
  void Add(const std::vector<QWidget*>& group);
  /// Moves the focus from a control to the next stop, or to the previous one. Returns false if no
  /// control can take it.
  bool Move(const QWidget* from, bool next);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Stop {
    std::vector<QWidget*> group;
    QWidget* last;  ///< the control that was used last
  };

  Stop* StopOf(const QObject* control);
  bool PressKey(QWidget* control, const QKeyEvent& event);

  std::vector<Stop> stops_;
  /// Delays the tool tip of a button that got the keyboard focus.
  QTimer toolTipDelay_;
};

}  // namespace morvane
