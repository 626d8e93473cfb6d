#pragma once

#include <QMainWindow>
#include <functional>
#include <string>

#include "editor/MainForm.h"

namespace morvane {

class CanvasView;
class ClientArea;
class CustomFrame;
class LeftColumn;
class MainMenu;
class PaletteView;
class StatusBar;
class TabRing;
class ToolBar;

/// The main window. Each event calls a function of the core and then updates the window.
class frmMain : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmMain(MainForm& form);

  /// Does in advance what would slow down the first showing.
  void Prepare();

  /// Opens a map that the user has chosen outside of the program, by its absolute path.
  void Open(const std::string& path);

  /// Reports where maps of earlier runs were saved, if there are any.
  void ReportRescueCopies();

  /// Updates every control.
  void ShowState();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void ConnectEvents();
  /// Returns an event handler that calls a function of the core with the palette and the arguments
  /// of the event, then updates the window.
  template <typename Rule>
  auto Event(Rule rule);
  /// Calls a function of the core and updates the window. Reports when memory runs out.
  void Run(const std::function<void()>& command);
  void WatchHover();
  void AddTabStops();
  /// Runs the command of a menu entry, by its name. Commands without a function do nothing.
  void RunCommand(const QString& name);
  void Form_Resize();

  MainForm& form_;
  ClientArea* client_;
  MainMenu* menu_;
  ToolBar* tbToolBar_;
  StatusBar* sbStatusBar_;
  LeftColumn* leftColumn_;
  PaletteView* palette_;
  CustomFrame* frame5_;
  CanvasView* canvas_;
  TabRing* tabRing_;
};

}  // namespace morvane
