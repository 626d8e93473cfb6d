// A window with Morvane's menus, tool bar and status bar but without contents, for comparison.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <vector>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  // The caption of each menu, then those of its entries, where "-" is a separator.
  const std::vector<QStringList> menus = {
      {"&File", "&New\tCtrl+N", "&Open...\tCtrl+O", "&Save\tCtrl+S", "Save &As...\tF12", "-",
       "Print Set&up...", "&Print...\tCtrl+P", "-", "E&xit"},
      {"&Edit", "&Undo\tCtrl+Z"},
      {"&View", "Status &Bar"},
      {"&Tools", "&Options...", "Insert &Text...\tCtrl+T"},
      {"&Help", "&About "}};
  for (const QStringList& captions : menus) {
    QMenu* menu = window.menuBar()->addMenu(captions.first());
    for (const QString& caption : captions.mid(1)) {
      menu->addAction(caption)->setSeparator(caption == "-");
    }
  }
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
