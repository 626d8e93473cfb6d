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

/// The form of the running program, for handlers without a context argument.
MainForm* runningForm = nullptr;

/// Signal handlers and other threads must not access the map: they write the signal's number, or
/// kDisplayLost, to this pipe, and the event loop reads it.
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
  constexpr unsigned kTimeout = 30;  // s
  const int error = errno;
  // Ends a program that hangs and doesn't read the pipe.
  alarm(kTimeout);
  WriteToPipe(static_cast<char>(number));
  errno = error;
}

/// Qt calls exit() when the X server is gone.
void EndAtExit() {
  if (runningForm != nullptr) runningForm->RescueAtTermination();
}

/// GTK, which some platform themes load, has its own connection to the display, and ends the
/// process without exit handlers when that is gone. The program doesn't link GTK, so its functions
/// are looked up by name.
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

/// A field of a GLib log message.
struct LogField {
  const char* key;
  const void* value;
  std::ptrdiff_t length;
};
using LogWriter = int(int level, const LogField* fields, std::size_t count, void* data);
LogWriter* defaultWriter = nullptr;

/// Saves the map when GTK logs that the compositor is gone: it ends the process next.
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

/// When the Wayland compositor is gone, one of Qt's threads (the main thread in newer versions)
/// logs a warning and then ends the process without exit handlers. The thread is delayed here until
/// the main thread has saved the map. The process also ends if Qt would wait for another compositor
/// (QT_WAYLAND_RECONNECT): if none came, the map would be lost.
void EndByLostCompositor() {
  constexpr unsigned long kTimeout = 5;  // s
  if (runningForm == nullptr) return;
  if (QThread::currentThread() == qApp->thread()) {
    runningForm->RescueAtTermination();
    std::_Exit(EXIT_FAILURE);
  } else {
    WriteToPipe(kDisplayLost);
    QThread::sleep(kTimeout);
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
    : form_(form), pipeNotifier_(OpenEndPipe(), QSocketNotifier::Read) {
  runningForm = &form;
  std::atexit(&EndAtExit);
  WatchGtk();
  connect(&pipeNotifier_, &QSocketNotifier::activated, this, &Termination::EndByPipe);
  for (const int number : kSignals) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    // nohup sets SIGHUP to be ignored, and that is respected.
    if (action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = &PassSignal;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
  }
  // The session manager needs the answer before the signal returns.
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

/// While the window is open, only a session manager sends this event.
bool Termination::eventFilter(QObject* application, QEvent* event) {
  if (application == qApp && event->type() == QEvent::Quit && !form_.HasEnded()) {
    form_.RescueAtTermination();
    std::_Exit(EXIT_SUCCESS);
  }
  return false;
}

}  // namespace morvane
