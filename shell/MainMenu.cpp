#include "shell/MainMenu.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <array>

namespace morvane {
namespace {

enum State { kTop, kShown, kHidden };

/// An entry of the menu tree. A top-level entry is followed by the entries of its menu. Hidden ones
/// have no function.
struct Entry {
  const char* name;
  const char* caption;  ///< "-" for a separator
  const char* shortcut;
  State state;
};

constexpr std::array kEntries = {
    Entry{"mnuFile", "&File", "", kTop},
    Entry{"mnuFileNew", "&New", "Ctrl+N", kShown},
    Entry{"mnuFileOpen", "&Open...", "Ctrl+O", kShown},
    Entry{"mnuFileSave", "&Save", "Ctrl+S", kShown},
    Entry{"mnuFileSaveAs", "Save &As...", "F12", kShown},
    Entry{"mnuFileClose", "&Close", "", kHidden},
    Entry{"mnuFileBar0", "-", "", kShown},
    Entry{"mnuFileBar1", "-", "", kHidden},
    Entry{"mnuFilePageSetup", "Print Set&up...", "", kShown},
    Entry{"mnuFilePrintPreview", "Print Pre&view", "", kHidden},
    Entry{"mnuFilePrint", "&Print...", "Ctrl+P", kShown},
    Entry{"mnuFileBar3", "-", "", kShown},
    Entry{"mnuFileMRU-1", "", "", kHidden},
    Entry{"mnuFileMRU-2", "", "", kHidden},
    Entry{"mnuFileMRU-3", "", "", kHidden},
    Entry{"mnuFileBar5", "-", "", kHidden},
    Entry{"mnuFileExit", "E&xit", "", kShown},
    Entry{"mnuEdit", "&Edit", "", kTop},
    Entry{"mnuEditUndo", "&Undo", "Ctrl+Z", kShown},
    Entry{"mnuEditRedo", "&Redo", "Ctrl+R", kHidden},
    Entry{"mnuEditBar0", "-", "", kHidden},
    Entry{"mnuEditCut", "Cu&t", "Ctrl+X", kHidden},
    Entry{"mnuEditCopy", "&Copy", "Ctrl+C", kHidden},
    Entry{"mnuEditPaste", "&Paste", "Ctrl+V", kHidden},
    Entry{"mnuView", "&View", "", kTop},
    Entry{"mnuViewToolbar", "&Toolbar", "", kHidden},
    Entry{"mnuViewStatusBar", "Status &Bar", "", kShown},
    Entry{"mnuTools", "&Tools", "", kTop},
    Entry{"mnuToolsOptions", "&Options...", "", kShown},
    Entry{"mnuToolsInsertText", "Insert &Text...", "Ctrl+T", kShown},
    Entry{"mnuHelp", "&Help", "", kTop},
    Entry{"mnuHelpContents", "&Contents", "", kHidden},
    Entry{"mnuHelpSearchForHelpOn", "&Help", "F1", kHidden},
    Entry{"mnuHelpBar0", "-", "", kHidden},
    Entry{"mnuHelpAbout", "&About ", "", kShown},
};

}  // namespace

MainMenu::MainMenu(QMenuBar* bar) : QObject(bar), bar_(bar) {
  bar->setAccessibleName("Menu");
  QMenu* menu = nullptr;
  for (const Entry& entry : kEntries) {
    if (menu == nullptr || entry.state == kTop) {
      menu = bar->addMenu(entry.caption);
      menu->setObjectName(entry.name);
      menu->setAccessibleName(menu->title().remove('&'));
      continue;
    }
    const QString caption = entry.caption;
    QAction* action = menu->addAction(caption == "-" ? QString() : caption);
    action->setSeparator(caption == "-");
    action->setObjectName(entry.name);
    action->setShortcut(QKeySequence(entry.shortcut));
    action->setVisible(entry.state == kShown);
    connect(action, &QAction::triggered, this,
            [this, name = entry.name] { emit Chosen(QString(name)); });
  }
  for (const char* checkable : {"mnuViewToolbar", "mnuViewStatusBar"}) {
    Find(checkable)->setCheckable(true);
    Find(checkable)->setChecked(true);
  }
}

QAction* MainMenu::Find(const char* name) const {
  return bar_->findChild<QAction*>(name);
}

}  // namespace morvane
