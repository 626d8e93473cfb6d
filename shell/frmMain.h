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

/// The main window. Each of its events runs in the core; then the window shows the state.
class frmMain : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmMain(MainForm& form);

  /// Does ahead what the first showing would take time for.
  void Prepare();

  /// Opens a map that the user has chosen outside, by its absolute path.
  void Open(const std::string& path);

  /// Tells the user where maps of earlier runs were saved, if there are any to be told of.
  void ReportRescueCopies();

  /// Brings every control up to date.
  void ShowState();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void ConnectEvents();
  /// An event of the palette or the map: the rule runs, then the window shows the state.
  template <typename Rule>
  auto Event(Rule rule);
  /// Runs what an event asks for and shows the state; a lack of memory is told, not the end.
  void Run(const std::function<void()>& command);
  void WatchHover();
  void AddTabStops();
  /// Runs the command of a menu entry or of the tool bar button that stands for it.
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
