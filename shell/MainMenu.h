#pragma once

#include <QObject>

class QAction;
class QMenuBar;

namespace morvane {

/// The menu tree of the main window, hidden entries included.
class MainMenu : public QObject {
  Q_OBJECT

 public:
  explicit MainMenu(QMenuBar* bar);

  /// The entry of that name.
  QAction* Find(const char* name) const;

 signals:
  /// An entry was chosen, by mouse, mnemonic or shortcut; its name is the system's.
  void Chosen(const QString& name);

 private:
  QMenuBar* bar_;
};

}  // namespace morvane
