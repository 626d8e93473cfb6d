// A window with Morvane's menus, tool bar and status bar but without contents, for comparison.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  // Each menu and its entries, which may be separators.
  for (const char* text :
       {"&File;&New\tCtrl+N;&Open...\tCtrl+O;&Save\tCtrl+S;Save &As...\tF12;-;Print Set&up...;"
        "&Print...\tCtrl+P;-;E&xit",
        "&Edit;&Undo\tCtrl+Z", "&View;Status &Bar", "&Tools;&Options...;Insert &Text...\tCtrl+T",
        "&Help;&About "}) {
    QStringList captions = QString(text).split(';');
    QMenu* menu = window.menuBar()->addMenu(captions.takeFirst());
    for (const QString& caption : captions) menu->addAction(caption)->setSeparator(caption == "-");
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
