#include "tests/window/Session.h"

#include <glib.h>
#include <sys/prctl.h>

#include <QElapsedTimer>
#include <QFile>
#include <csignal>

namespace morvane {

Session::Session() {
  const QByteArray home = QFile::encodeName(folder.path());
  for (const char* variable : {"HOME", "XDG_RUNTIME_DIR"}) qputenv(variable, home);
  for (const char* variable :
       {"WAYLAND_DISPLAY", "AT_SPI_BUS_ADDRESS", "DBUS_SESSION_BUS_ADDRESS", "XDG_STATE_HOME"}) {
    qunsetenv(variable);
  }
  qputenv("QT_QPA_PLATFORM", "xcb");
  qputenv("QT_QPA_PLATFORMTHEME", "generic");
}

void Session::End() {
  for (QProcess& process : processes) {
    process.terminate();
    process.waitForFinished();
  }
  processes.clear();
}

QProcess& Session::Start(const QString& program, const QStringList& arguments) {
  QProcess& process = processes.emplace_front();
  process.setWorkingDirectory(folder.path());
  process.setChildProcessModifier([] {
    // Nothing stays behind a test that is cut short; servers delete their sockets.
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    // Commands that a shell runs in the background ignore this one.
    ::signal(SIGINT, SIG_DFL);
  });
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForStarted()) << program.toStdString();
  return process;
}

QByteArray Session::AddressOf(const QString& program, const QStringList& arguments) {
  QProcess& server = Start(program, arguments);
  EXPECT_TRUE(server.waitForReadyRead()) << server.readAllStandardError().toStdString();
  return server.readLine().trimmed();
}

QProcess& Session::OpenDisplay() {
  // Without a pointer, the pixels are those of the windows alone.
  qputenv("DISPLAY",
          ":" + AddressOf("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten",
                                   "tcp", "-noreset", "-nocursor", "-fbdir", folder.path()}));
  QProcess& display = processes.front();
  // A window manager that looks at presses first makes the server drop events of fast strokes.
  QFile settings(folder.filePath("openbox.xml"));
  EXPECT_TRUE(settings.open(QIODevice::WriteOnly));
  settings.write("<openbox_config><mouse/></openbox_config>");
  settings.close();
  Start("openbox", {"--config-file", settings.fileName()});
  return display;
}

bool Await(const std::function<bool()>& condition) {
  constexpr qint64 kLongest = 10'000;  // ms
  constexpr int kPause = 10'000;       // us
  QElapsedTimer waited;
  waited.start();
  for (;;) {
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
    if (condition()) return true;
    if (waited.elapsed() > kLongest) return false;
    g_usleep(kPause);
  }
}

}  // namespace morvane
