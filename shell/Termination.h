#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QtGlobal>

#include "editor/MainForm.h"

class QSessionManager;

namespace morvane {

/// Keeps the map at the ends of the program at which the exit question can't be asked: SIGTERM,
/// SIGINT, SIGHUP, the loss of the display, and the end of the desktop session. There is one of
/// these, from when the main window is ready until the event loop has ended.
class Termination : public QObject {
 public:
  /// The form outlives this object.
  explicit Termination(MainForm& form);
  ~Termination() override;

 protected:
  bool eventFilter(QObject* application, QEvent* event) override;

 private:
  /// Ends the process as the pipe says.
  void EndByPipe();
  void CommitSession(QSessionManager& session);

  MainForm& form_;
  QSocketNotifier ends_;  ///< reports the next byte of the pipe
};

/// The handler of Qt's messages, which learns from one that the Wayland compositor is gone. It
/// keeps warnings for developers off the terminal, unless QT_LOGGING_RULES is set.
void TakeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text);

}  // namespace morvane
