#pragma once

#include <QPoint>
#include <QProcess>
#include <QSize>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace morvane {

/// A display in memory with a window manager, and the hand of a user on it.
class VirtualDisplay {
 public:
  VirtualDisplay();
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;
  ~VirtualDisplay();

  bool IsRunning() const { return !name_.isEmpty(); }

  /// Starts a program in a folder, which is its home too.
  std::unique_ptr<QProcess> Start(const QString& program, const QString& folder) const;

  /// The number of the window with exactly this title; waits for it, empty after half a minute.
  QString WaitForWindow(const QString& title, const QSize& atLeast = {}) const;
  /// Waits until no window has this title any more.
  bool WaitUntilGone(const QString& title) const;

  QSize SizeOf(const QString& window) const;

  /// Clicks at a place inside a window.
  void Click(const QString& window, const QPoint& place, int button) const;
  void Key(const QString& key) const;
  void Type(const QString& text) const;

 private:
  QString FindWindow(const QString& title) const;
  QString Ask(const QStringList& arguments) const;

  QProcess server_;
  std::unique_ptr<QProcess> windowManager_;
  QString name_;
};

/// Waits until a condition holds, for half a minute at most. Returns whether it does.
bool WaitFor(const std::function<bool()>& condition);

}  // namespace morvane
