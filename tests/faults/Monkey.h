#pragma once

#include <QContextMenuEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPixmapCache>
#include <QPointer>
#include <QToolBar>
#include <QWheelEvent>
#include <deque>

#include "shell/TileBox.h"
#include "tests/faults/MonkeySession.h"

namespace morvane {

/// Sits at the window and does what comes to its mind.
class Monkey {
 public:
  explicit Monkey(unsigned seed) : dice_(seed) { Restart(); }

  void Restart() {
    held_ = Qt::NoButton;
    session_.reset();
    session_ = std::make_unique<MonkeySession>(dice_, workshop_, heard);
  }

  /// Measures without a window, so that its map doesn't count.
  double MeasureAtRest(double (*measure)()) {
    session_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QPixmapCache::clear();
    const double measured = measure();
    Restart();
    return measured;
  }

  void DoAnything() {
    session_->platform.brought = {};
    const int roll = dice_.Roll(0, 99);
    if (roll < 45) {
      UseMap();
    } else if (roll < 56) {
      ClickTile();
    } else if (roll < 62) {
      Push(Find(dice_.Pick(
          std::array{"WallButton", "FlipHorizontal", "FlipVertical", "Rotate", "RotateLeft"})));
    } else if (roll < 74) {
      TypeKey();
    } else if (roll < 80) {
      ChooseEntry();
    } else if (roll < 83) {
      PushToolBar();
    } else if (roll < 88) {
      ChangeSet();
    } else if (roll < 90) {
      Resize();
    } else {
      PokeAnywhere();
    }
    ClosePopups();
    QCoreApplication::processEvents();
  }

  bool WindowIsOpen() const { return session_->window.isVisible(); }
  std::string Fault(bool withPictures) { return session_->Fault(withPictures); }
  MonkeySession::Counts heard;
  std::string Trail() const {
    std::string text;
    for (const std::string& event : trail_) text += "\n  " + event;
    return text;
  }

 private:
  QWidget* Find(const char* name) { return session_->Find(name); }

  void Note(const std::string& event) {
    trail_.push_back(event);
    if (trail_.size() > 12) trail_.pop_front();
  }

  static std::string NameOf(const QWidget* widget) {
    return widget->metaObject()->className() + (" " + widget->objectName().toStdString());
  }

  void Mouse(QWidget* widget, QEvent::Type type, QPoint place, Qt::MouseButton button,
             Qt::MouseButtons buttons) {
    Note(NameOf(widget) + " mouse " + std::to_string(type) + " at " + std::to_string(place.x()) +
         "," + std::to_string(place.y()) + " button " + std::to_string(button) + " of " +
         std::to_string(buttons.toInt()));
    QMouseEvent event(type, place, widget->mapToGlobal(QPointF(place)), button, buttons, {});
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::sendEvent(widget, &event);
  }

  Qt::MouseButton AnyButton() {
    return dice_.Pick(std::array{Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                 Qt::RightButton, Qt::MiddleButton, Qt::BackButton});
  }

  /// Places crowd around the grid lines, where the rules differ; drags leave the map too.
  QPoint PlaceOnMap() {
    const auto along = [this](int extent) {
      if (dice_.OneIn(3)) return dice_.Roll(-30, extent + 30);
      return 2 + dice_.Roll(0, extent / 20) * 20 + dice_.Roll(-5, 5);
    };
    const QWidget* canvas = Find("Canvas");
    return {along(canvas->width()), along(canvas->height())};
  }

  void UseMap() {
    QWidget* canvas = Find("Canvas");
    const int roll = dice_.Roll(0, 9);
    if (roll < 4) {
      Mouse(canvas, QEvent::MouseMove, PlaceOnMap(), Qt::NoButton, held_);
    } else if (roll < 8 && held_ != Qt::NoButton) {
      Mouse(canvas, QEvent::MouseButtonRelease, PlaceOnMap(), Qt::LeftButton, Qt::NoButton);
      held_ = Qt::NoButton;
    } else {
      const Qt::MouseButton button = AnyButton();
      held_ |= button;
      Mouse(canvas, roll == 9 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress,
            PlaceOnMap(), button, held_);
    }
  }

  void Push(QWidget* widget) {
    const QPointer<QWidget> pushed = widget;
    const QPoint place(dice_.Roll(0, widget->width() - 1), dice_.Roll(0, widget->height() - 1));
    const Qt::MouseButton button = dice_.OneIn(5) ? AnyButton() : Qt::LeftButton;
    Mouse(widget, dice_.OneIn(4) ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, place,
          button, button);
    if (pushed && dice_.OneIn(4)) {
      Mouse(pushed, QEvent::MouseMove, place + QPoint(3, 9), Qt::NoButton, button);
    }
    if (pushed) Mouse(pushed, QEvent::MouseButtonRelease, place, button, Qt::NoButton);
  }

  void ClickTile() {
    std::vector<QWidget*> tiles;
    for (QWidget* widget : Client()->findChildren<QWidget*>()) {
      if (dynamic_cast<TileBox*>(widget) != nullptr && widget->isVisible()) tiles.push_back(widget);
    }
    if (tiles.empty()) return UseList(dice_.OneIn(3) ? "Dir1" : "File1");
    Push(dice_.Pick(tiles));
  }

  void UseList(const char* name) {
    auto* list = session_->Find<QListWidget>(name);
    if (list->count() == 0) return;
    const QListWidgetItem* item = list->item(dice_.Roll(0, list->count() - 1));
    list->scrollToItem(item);
    const QPoint place = list->visualItemRect(item).center();
    Note(std::string(name) + " row " + item->text().toStdString());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    if (dice_.OneIn(2)) QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    if (dice_.OneIn(4)) QTest::keyClick(list, Qt::Key_Return);
  }

  QWidget* Client() { return session_->window.centralWidget(); }

  void TypeKey() {
    session_->window.activateWindow();
    QWidget* focus = session_->window.focusWidget();
    if (focus == nullptr || dice_.OneIn(2)) focus = Find("Canvas");
    Note("a key at " + NameOf(focus));
    const auto robot = session_->platform.Robot();
    PressAnyKey(dice_, focus);
  }

  void ChooseEntry() {
    std::vector<QAction*> entries;
    for (QAction* action : session_->window.menuBar()->findChildren<QAction*>()) {
      if (action->isVisible() && action->menu() == nullptr) entries.push_back(action);
    }
    if (entries.empty()) return;
    QAction* entry = dice_.Pick(entries);
    if (entry->objectName() == "mnuToolsOptions" && !dice_.OneIn(3)) return;
    Note("entry " + entry->objectName().toStdString());
    const auto robot = session_->platform.Robot();
    entry->trigger();
  }

  void PushToolBar() {
    auto* bar = session_->Find<QToolBar>("tbToolBar");
    Push(bar->widgetForAction(dice_.Pick(bar->actions())));
  }

  void ChangeSet() {
    if (dice_.OneIn(3)) {
      for (QTabBar* tabs : Client()->findChildren<QTabBar*>()) {
        if (tabs->isVisible()) tabs->setCurrentIndex(dice_.Roll(0, tabs->count() - 1));
      }
      return Note("tab");
    }
    auto* selector = session_->Find<QComboBox>(dice_.OneIn(9) ? "Drive1" : "TileSetSelector");
    if (selector->isHidden() || selector->count() == 0) return;
    Note("entries of " + NameOf(selector));
    QTest::keyClick(selector, Qt::Key_Home);
    for (int i = dice_.Roll(0, selector->count()); i > 0; --i) {
      QTest::keyClick(selector, Qt::Key_Down);
    }
  }

  void Resize() {
    const bool isLarge = dice_.OneIn(8);
    const QSize size = {dice_.Roll(0, isLarge ? 1700 : 850), dice_.Roll(0, isLarge ? 1300 : 650)};
    Note("resize to " + std::to_string(size.width()) + " x " + std::to_string(size.height()));
    session_->window.resize(dice_.OneIn(3) ? QSize(787, 560) : size);
  }

  void PokeAnywhere() {
    const auto robot = session_->platform.Robot();
    const auto all = session_->window.findChildren<QWidget*>();
    QWidget* widget = dice_.Pick(all);
    if (!widget->isVisible() || widget->size().isEmpty()) return;
    const QPoint place(dice_.Roll(0, widget->width() - 1), dice_.Roll(0, widget->height() - 1));
    const QPoint global = widget->mapToGlobal(place);
    const int roll = dice_.Roll(0, 9);
    if (roll < 4) {
      Mouse(widget, QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton);
    } else if (roll < 5) {
      Note("context menu of " + NameOf(widget));
      QContextMenuEvent event(QContextMenuEvent::Mouse, place, global);
      QApplication::sendEvent(widget, &event);
    } else if (roll < 6) {
      Note("wheel over " + NameOf(widget));
      QWheelEvent event(place, global, {}, {0, dice_.OneIn(2) ? 120 : -120}, {}, {},
                        Qt::NoScrollPhase, false);
      QApplication::sendEvent(widget, &event);
    } else {
      Push(widget);
    }
  }

  void ClosePopups() {
    for (int i = 0; i < 5; ++i) {
      QPointer<QWidget> popup = QApplication::activePopupWidget();
      if (popup == nullptr) return;
      const auto robot = session_->platform.Robot();
      Note("popup " + NameOf(popup));
      if (dice_.OneIn(2)) QTest::keyClick(popup, Qt::Key_Down);
      if (popup && dice_.OneIn(2)) PressAnyKey(dice_, popup);
      if (popup && dice_.OneIn(2)) popup->close();
    }
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  }

  Dice dice_;
  Workshop workshop_;
  Qt::MouseButtons held_;
  std::deque<std::string> trail_;
  std::unique_ptr<MonkeySession> session_;
};

}  // namespace morvane
