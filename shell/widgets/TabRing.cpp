#include "shell/widgets/TabRing.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>
#include <chrono>
#include <iterator>
#include <limits>

namespace morvane {
namespace {

bool CanTakeFocus(const QWidget* control) {
  return control->isVisible() && control->isEnabled() && control->focusPolicy() != Qt::NoFocus;
}

/// Focus indicators are for keyboard users, so they are not shown after a mouse click.
void ShowMarks(const QWidget* control, bool show) {
  QWidget* window = control->window();
  if (window->testAttribute(Qt::WA_KeyboardFocusChange) == show) return;
  window->setAttribute(Qt::WA_KeyboardFocusChange, show);
  if (QWidget* focused = window->focusWidget()) focused->update();
}

void Focus(QWidget* control, bool next = true) {
  control->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

bool IsByKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
}

/// The nearest control of a group above or below.
QWidget* Nearest(const std::vector<QWidget*>& group, const QWidget* from, bool below) {
  constexpr int kOverlap = 3;  // pixels that neighbours may share
  const QRect start = from->geometry();
  QWidget* nearest = nullptr;
  int shortest = std::numeric_limits<int>::max();
  for (QWidget* control : group) {
    const QRect place = control->geometry();
    const int distance = below ? place.top() - start.bottom() : start.top() - place.bottom();
    if (distance < -kOverlap) continue;
    const int sideways = std::max(
        {0, place.left() - start.right() + kOverlap, start.left() - place.right() + kOverlap});
    if (distance + 2 * sideways >= shortest) continue;
    shortest = distance + 2 * sideways;
    nearest = control;
  }
  return nearest;
}

/// A control of a group, or the next one that is enabled; null if there is none.
QWidget* NextUsable(std::vector<QWidget*> group, QWidget* from) {
  std::rotate(group.begin(), std::find(group.begin(), group.end(), from), group.end());
  const auto usable = std::find_if(group.begin(), group.end(), &CanTakeFocus);
  return usable == group.end() ? nullptr : *usable;
}

/// The control that a key moves to within a group; null for other keys.
QWidget* Target(const std::vector<QWidget*>& group, QWidget* from, int key) {
  std::vector<QWidget*> usable;
  std::copy_if(group.begin(), group.end(), std::back_inserter(usable), &CanTakeFocus);
  const auto at = std::find(usable.begin(), usable.end(), from);
  if (at == usable.end()) return nullptr;
  switch (key) {
    case Qt::Key_Home:
      return usable.front();
    case Qt::Key_End:
      return usable.back();
    case Qt::Key_Left:
      return at == usable.begin() ? from : *(at - 1);
    case Qt::Key_Right:
      return at + 1 == usable.end() ? from : *(at + 1);
    case Qt::Key_Up:
    case Qt::Key_Down: {
      QWidget* nearest = Nearest(usable, from, key == Qt::Key_Down);
      return nearest != nullptr ? nearest : from;
    }
    default:
      return nullptr;
  }
}

}  // namespace

TabRing::TabRing(QObject* parent) : QObject(parent) {
  constexpr std::chrono::milliseconds kDelay(700);
  toolTipDelay_.setSingleShot(true);
  toolTipDelay_.setInterval(kDelay);
  connect(&toolTipDelay_, &QTimer::timeout, this, [] {
    const QWidget* control = QApplication::focusWidget();
    if (qobject_cast<const QAbstractButton*>(control) == nullptr) return;
    QToolTip::showText(control->mapToGlobal(control->rect().bottomLeft()), control->toolTip());
  });
}

void TabRing::Add(const std::vector<QWidget*>& group) {
  stops_.push_back({group, group.front()});
  for (QWidget* control : group) control->installEventFilter(this);
}

TabRing::Stop* TabRing::StopOf(const QObject* control) {
  for (Stop& stop : stops_) {
    if (std::find(stop.group.begin(), stop.group.end(), control) != stop.group.end()) return &stop;
  }
  return nullptr;
}

bool TabRing::Move(const QWidget* from, bool next) {
  const Stop* current = StopOf(from);
  const auto count = static_cast<int>(stops_.size());
  // From another control, Tab moves to the first stop and Shift+Tab to the last.
  int start = next ? -1 : 0;
  if (current != nullptr) start = static_cast<int>(current - stops_.data());
  // A button that was disabled by its own click passes the focus on within its group first.
  const bool stays = current != nullptr && !from->isEnabled();
  for (int i = stays ? 0 : 1; i <= count; ++i) {
    const Stop& stop = stops_[(start + (next ? i : count - i) + count) % count];
    QWidget* target = NextUsable(stop.group, stop.last);
    if (target == nullptr) continue;
    Focus(target, next);
    return true;
  }
  return false;
}

bool TabRing::PressKey(QWidget* control, const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  ShowMarks(control, true);
  const int key = event.key();
  auto* button = qobject_cast<QAbstractButton*>(control);
  if (button != nullptr && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
    if (!event.isAutoRepeat()) button->click();
    return true;
  }
  const Stop* stop = StopOf(control);
  if (stop->group.size() == 1) return false;
  QWidget* target = Target(stop->group, control, key);
  if (target == nullptr) return false;
  Focus(target);
  return true;
}

bool TabRing::eventFilter(QObject* watched, QEvent* event) {
  auto* control = qobject_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::FocusIn:
      if (IsByKeyboard(static_cast<QFocusEvent*>(event)->reason())) toolTipDelay_.start();
      StopOf(control)->last = control;
      return false;
    case QEvent::FocusOut:
      toolTipDelay_.stop();
      return false;
    case QEvent::MouseButtonPress:
      ShowMarks(control, false);
      StopOf(control)->last = control;
      return false;
    case QEvent::KeyPress:
      return PressKey(control, *static_cast<QKeyEvent*>(event));
    default:
      return false;
  }
}

}  // namespace morvane
