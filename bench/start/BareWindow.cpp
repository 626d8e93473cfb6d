// A window with Morvane's menus, tool bar and status bar but without contents, for comparison.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <initializer_list>

namespace {

struct Entry {
  const char* caption;  ///< null for a separator
  const char* shortcut = "";
};

void AddMenu(QMenuBar* bar, const char* caption, std::initializer_list<Entry> entries) {
  QMenu* menu = bar->addMenu(caption);
  for (const Entry& entry : entries) {
    if (entry.caption == nullptr) {
      menu->addSeparator();
    } else {
      menu->addAction(entry.caption)->setShortcut(QKeySequence(entry.shortcut));
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  QMenuBar* menus = window.menuBar();
  AddMenu(menus, "&File",
          {{"&New", "Ctrl+N"},
           {"&Open...", "Ctrl+O"},
           {"&Save", "Ctrl+S"},
           {"Save &As...", "F12"},
           {nullptr},
           {"Print Set&up..."},
           {"&Print...", "Ctrl+P"},
           {nullptr},
           {"E&xit"}});
  AddMenu(menus, "&Edit", {{"&Undo", "Ctrl+Z"}});
  AddMenu(menus, "&View", {{"Status &Bar"}});
  AddMenu(menus, "&Tools", {{"&Options..."}, {"Insert &Text...", "Ctrl+T"}});
  AddMenu(menus, "&Help", {{"&About "}});
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
