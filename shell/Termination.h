#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QtGlobal>

#include "editor/MainForm.h"

class QSessionManager;

namespace morvane {

/// Saves the map when the program ends without the exit question: SIGTERM, SIGINT, SIGHUP, loss of
/// the display, and the end of the desktop session. There is one object, from when the main window
/// is ready until the event loop has ended.
class Termination : public QObject {
 public:
  /// The form must outlive this object.
  explicit Termination(MainForm& form);
  ~Termination() override;

 protected:
  bool eventFilter(QObject* application, QEvent* event) override;

 private:
  /// Reads the pipe and ends the process.
  void EndByPipe();
  void CommitSession(QSessionManager& session);

  MainForm& form_;
  QSocketNotifier pipeNotifier_;
};

/// Handles Qt's messages, one of which says that the Wayland compositor is gone. Keeps warnings for
/// developers off the terminal, unless QT_LOGGING_RULES is set.
void TakeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text);

}  // namespace morvane
