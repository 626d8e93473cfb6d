#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>
#include <deque>
#include <functional>

namespace morvane {

/// A folder as home, and processes that end with it.
struct Session {
  Session();
  ~Session() { End(); }

  QProcess& Start(const QString& program, const QStringList& arguments);
  /// Starts a server and gives the line in which it names its address.
  QByteArray AddressOf(const QString& program, const QStringList& arguments);
  /// Starts a display in memory with a window manager. Its pixels are in the file Pixels().
  QProcess& OpenDisplay();
  QString Pixels() const { return folder.filePath("Xvfb_screen0"); }
  /// Ends all processes, the newest first.
  void End();

  QTemporaryDir folder;
  std::deque<QProcess> processes;
};

/// Waits some seconds at most for something to become true.
bool Await(const std::function<bool()>& condition);

/// What the tool for keys and mouse is to do.
inline void Hand(const QStringList& orders) {
  ASSERT_EQ(QProcess::execute("xdotool", orders), 0) << orders.join(' ').toStdString();
}
inline void Key(const QStringList& keys) {
  Hand(QStringList("key") + keys);
}

}  // namespace morvane
