#include "shell/Termination.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <QByteArrayView>
#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <QThread>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace morvane {
namespace {

constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};

/// The form of the program that runs, for handlers that are given nothing.
MainForm* runningForm = nullptr;

/// A signal handler may do next to nothing, and another thread may not touch the map: they write
/// the signal's number, or kDisplayLost, into this pipe, and the event loop reads it.
std::array<int, 2> endPipe = {-1, -1};
constexpr char kDisplayLost = 0;

int OpenEndPipe() {
  if (endPipe[0] < 0 && pipe2(endPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return -1;
  return endPipe[0];
}

void WriteToPipe(char byte) {
  [[maybe_unused]] const ssize_t written = write(endPipe[1], &byte, 1);
}

void PassSignal(int number) {
  constexpr unsigned kPatience = 30;  // s
  const int error = errno;
  // Ends a program that never reads the pipe.
  alarm(kPatience);
  WriteToPipe(static_cast<char>(number));
  errno = error;
}

/// Qt calls exit() where the X server is gone.
void EndAtExit() {
  if (runningForm != nullptr) runningForm->RescueAtTermination();
}

/// GTK, which comes with some desktops' themes, has a connection of its own to the display, and
/// ends the process without any exit handler where that is gone. The program doesn't link GTK, so
/// the libraries are asked for by name.
template <typename Function>
Function* LoadedFunction(const char* library, const char* name) {
  void* handle = dlopen(library, RTLD_LAZY | RTLD_NOLOAD);
  if (handle == nullptr) return nullptr;
  auto* function = reinterpret_cast<Function*>(dlsym(handle, name));
  dlclose(handle);
  return function;
}

[[noreturn]] int EndByLostServer(void* /*display*/) {
  EndAtExit();
  std::_Exit(EXIT_FAILURE);
}

/// A part of a message, as GLib hands it to its writer.
struct LogField {
  const char* key;
  const void* value;
  std::ptrdiff_t length;
};
using LogWriter = int(int level, const LogField* fields, std::size_t count, void* data);
LogWriter* defaultWriter = nullptr;

/// Keeps the map when GTK logs that the compositor is gone: it ends the process next.
int WriteLog(int level, const LogField* fields, std::size_t count, void* data) {
  for (std::size_t i = 0; i < count; ++i) {
    if (std::strcmp(fields[i].key, "MESSAGE") != 0) continue;
    const QByteArrayView text(static_cast<const char*>(fields[i].value));
    if (text.startsWith("Error reading events from display") ||
        text.startsWith("Error flushing display") ||
        text.startsWith("Lost connection to Wayland compositor")) {
      EndAtExit();
    }
  }
  return defaultWriter(level, fields, count, data);
}

void WatchGtk() {
  using XHandler = int(void* display);
  using GFree = void(void* data);
  constexpr const char* kGLib = "libglib-2.0.so.0";
  if (auto* set = LoadedFunction<XHandler*(XHandler*)>("libX11.so.6", "XSetIOErrorHandler")) {
    set(&EndByLostServer);
  }
  defaultWriter = LoadedFunction<LogWriter>(kGLib, "g_log_writer_default");
  auto* setWriter = LoadedFunction<void(LogWriter*, void*, GFree*)>(kGLib, "g_log_set_writer_func");
  if (defaultWriter != nullptr && setWriter != nullptr) setWriter(&WriteLog, nullptr, nullptr);
}

/// Where the Wayland compositor is gone, one of Qt's threads, the window's own in newer versions,
/// reports it and then ends the process without any exit handler. It is delayed while the main
/// thread keeps the map. The process ends too where Qt would look for another compositor
/// (QT_WAYLAND_RECONNECT): if it found none, the map would be lost.
void EndByLostCompositor() {
  constexpr unsigned long kPatience = 5;  // s
  if (runningForm == nullptr) return;
  if (QThread::currentThread() == qApp->thread()) {
    runningForm->RescueAtTermination();
    std::_Exit(EXIT_FAILURE);
  } else {
    WriteToPipe(kDisplayLost);
    QThread::sleep(kPatience);
  }
}

}  // namespace

void TakeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (text.startsWith("The Wayland connection")) EndByLostCompositor();
  const bool isForDevelopers = type == QtWarningMsg && qstrcmp(context.category, "default") == 0;
  if (isForDevelopers && !qEnvironmentVariableIsSet("QT_LOGGING_RULES")) return;
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

Termination::Termination(MainForm& form)
    : form_(form), ends_(OpenEndPipe(), QSocketNotifier::Read) {
  runningForm = &form;
  std::atexit(&EndAtExit);
  WatchGtk();
  connect(&ends_, &QSocketNotifier::activated, this, &Termination::EndByPipe);
  for (const int number : kSignals) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    // Who starts the program may want it to survive the end of a terminal.
    if (action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = &PassSignal;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
  }
  // The session manager waits for the answer, so it must come during the signal.
  connect(qApp, &QGuiApplication::commitDataRequest, this, &Termination::CommitSession,
          Qt::DirectConnection);
  qApp->installEventFilter(this);
}

Termination::~Termination() {
  runningForm = nullptr;
}

void Termination::EndByPipe() {
  char number = 0;
  if (read(endPipe[0], &number, 1) != 1) return;
  form_.RescueAtTermination();
  if (number == kDisplayLost) std::_Exit(EXIT_FAILURE);
  std::signal(number, SIG_DFL);
  std::raise(number);
}

void Termination::CommitSession(QSessionManager& session) {
  const bool mayAsk = session.allowsInteraction();
  if (form_.SessionEnds(mayAsk)) {
    session.cancel();
  } else if (mayAsk) {
    session.release();
  }
}

/// While the window is still open, only a session manager that ends the session quits.
bool Termination::eventFilter(QObject* application, QEvent* event) {
  if (application == qApp && event->type() == QEvent::Quit && !form_.HasEnded()) {
    form_.RescueAtTermination();
    std::_Exit(EXIT_SUCCESS);
  }
  return false;
}

}  // namespace morvane
