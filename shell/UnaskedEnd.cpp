#include "shell/UnaskedEnd.h"

#include <fcntl.h>
#include <unistd.h>

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace morvane {
namespace {

constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};

/// The form of the program that runs, for handlers that are given nothing.
MainForm* runningForm = nullptr;

/// A signal handler may do next to nothing: it writes the signal's number into this pipe, and the
/// event loop reads it.
std::array<int, 2> signalPipe = {-1, -1};

int OpenSignalPipe() {
  if (signalPipe[0] < 0 && pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return -1;
  return signalPipe[0];
}

void PassSignal(int number) {
  const int error = errno;
  const char byte = static_cast<char>(number);
  [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
  errno = error;
}

/// Qt calls exit() where the display server is gone.
void EndAtExit() {
  if (runningForm != nullptr) runningForm->EndUnasked();
}

}  // namespace

UnaskedEnd::UnaskedEnd(MainForm& form)
    : form_(form), signals_(OpenSignalPipe(), QSocketNotifier::Read) {
  runningForm = &form;
  std::atexit(&EndAtExit);
  connect(&signals_, &QSocketNotifier::activated, this, &UnaskedEnd::EndBySignal);
  for (const int number : kSignals) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    // Who starts the program may want it to survive the end of a terminal.
    if (action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = &PassSignal;
    // A second signal of the kind ends a program that can't answer the first.
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    sigaction(number, &action, nullptr);
  }
  // The session manager waits for the answer, so it must come during the signal.
  connect(qApp, &QGuiApplication::commitDataRequest, this, &UnaskedEnd::CommitSession,
          Qt::DirectConnection);
  qApp->installEventFilter(this);
}

UnaskedEnd::~UnaskedEnd() {
  runningForm = nullptr;
}

void UnaskedEnd::EndBySignal() {
  char number = 0;
  if (read(signalPipe[0], &number, 1) != 1) return;
  form_.EndUnasked();
  std::signal(number, SIG_DFL);
  std::raise(number);
}

void UnaskedEnd::CommitSession(QSessionManager& session) {
  const bool mayAsk = session.allowsInteraction();
  if (form_.SessionEnds(mayAsk)) session.cancel();
  if (mayAsk) session.release();
}

/// While the window is still open, only a session manager that ends the session quits.
bool UnaskedEnd::eventFilter(QObject* application, QEvent* event) {
  if (application == qApp && event->type() == QEvent::Quit && !form_.HasEnded()) {
    form_.EndUnasked();
    std::_Exit(EXIT_SUCCESS);
  }
  return false;
}

}  // namespace morvane
