// A window with Morvane's menus, tool bar and status bar but without contents, for comparison.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <array>

namespace {

struct Entry {
  const char* caption;  ///< "-" for a separator
  const char* shortcut;
};

struct Menu {
  const char* caption;
  std::array<Entry, 16> entries;  ///< up to the first without a caption
};

constexpr std::array kMenus = {
    Menu{"&File",
         {{{"&New", "Ctrl+N"},
           {"&Open...", "Ctrl+O"},
           {"&Save", "Ctrl+S"},
           {"Save &As...", "F12"},
           {"-", ""},
           {"Print Set&up...", ""},
           {"&Print...", "Ctrl+P"},
           {"-", ""},
           {"E&xit", ""}}}},
    Menu{"&Edit", {{{"&Undo", "Ctrl+Z"}}}},
    Menu{"&View", {{{"Status &Bar", ""}}}},
    Menu{"&Tools", {{{"&Options...", ""}, {"Insert &Text...", "Ctrl+T"}}}},
    Menu{"&Help", {{{"&About ", ""}}}},
};

void AddMenus(QMenuBar* bar) {
  for (const Menu& menu : kMenus) {
    QMenu* shown = bar->addMenu(menu.caption);
    for (const Entry& entry : menu.entries) {
      if (entry.caption == nullptr) break;
      if (*entry.caption == '-') {
        shown->addSeparator();
      } else {
        shown->addAction(entry.caption)->setShortcut(QKeySequence(entry.shortcut));
      }
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  AddMenus(window.menuBar());
  QToolBar* bar = window.addToolBar("Tools");
  for (const char* button :
       {"New", "Open", "Save", "Print", "Undo", "Redo", "Cut", "Copy", "Paste"}) {
    bar->addAction(button);
  }
  window.statusBar()->showMessage("Ready");
  window.resize(787, 559);
  window.show();
  return QApplication::exec();
}
