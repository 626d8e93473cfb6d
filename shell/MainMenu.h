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

  /// The entry with this object name, which must exist.
  QAction* Find(const char* name) const;

 signals:
  /// An entry was chosen, by mouse, mnemonic or shortcut; the name is its object name.
  void Chosen(const QString& name);

 private:
  QMenuBar* bar_;
};

}  // namespace morvane
