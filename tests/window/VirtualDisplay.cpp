#include "tests/window/VirtualDisplay.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QThread>

namespace morvane {
namespace {

constexpr int kPatience = 30'000;  // ms
constexpr unsigned long kStep = 20;

}  // namespace

bool WaitFor(const std::function<bool()>& condition) {
  QElapsedTimer waited;
  waited.start();
  while (!condition()) {
    if (waited.elapsed() > kPatience) return false;
    QThread::msleep(kStep);
  }
  return true;
}

VirtualDisplay::VirtualDisplay() {
  server_.setStandardErrorFile(QProcess::nullDevice());
  server_.start("Xvfb",
                {"-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"});
  if (!server_.waitForStarted() || !server_.waitForReadyRead(kPatience)) return;
  name_ = ":" + QString::fromLatin1(server_.readLine()).trimmed();
  windowManager_ = Start("openbox", QDir::tempPath());
  WaitFor([this] { return !Ask({"get_num_desktops"}).isEmpty(); });
}

VirtualDisplay::~VirtualDisplay() {
  for (QProcess* process : {windowManager_.get(), &server_}) {
    if (process == nullptr) continue;
    process->terminate();
    process->waitForFinished();
  }
}

std::unique_ptr<QProcess> VirtualDisplay::Start(const QString& program,
                                                const QString& folder) const {
  auto process = std::make_unique<QProcess>();
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", name_);
  environment.insert("HOME", folder);
  environment.insert("QT_QPA_PLATFORM", "xcb");
  environment.remove("WAYLAND_DISPLAY");
  process->setProcessEnvironment(environment);
  process->setWorkingDirectory(folder);
  process->setProcessChannelMode(QProcess::ForwardedChannels);
  process->start(program, QStringList());
  process->waitForStarted();
  return process;
}

QString VirtualDisplay::WaitForWindow(const QString& title, const QSize& atLeast) const {
  QString window;
  WaitFor([&] {
    window = FindWindow(title);
    const QSize size = window.isEmpty() ? QSize() : SizeOf(window);
    if (size.width() < atLeast.width() || size.height() < atLeast.height()) window.clear();
    return !window.isEmpty();
  });
  return window;
}

bool VirtualDisplay::WaitUntilGone(const QString& title) const {
  return WaitFor([&] { return FindWindow(title).isEmpty(); });
}

QSize VirtualDisplay::SizeOf(const QString& window) const {
  static const QRegularExpression kSize("WIDTH=(\\d+)\\s+HEIGHT=(\\d+)");
  const auto match = kSize.match(Ask({"getwindowgeometry", "--shell", window}));
  return {match.captured(1).toInt(), match.captured(2).toInt()};
}

void VirtualDisplay::Click(const QString& window, const QPoint& place, int button) const {
  Ask({"mousemove", "--window", window, QString::number(place.x()), QString::number(place.y()),
       "click", QString::number(button)});
}

void VirtualDisplay::Key(const QString& key) const {
  Ask({"key", key});
}

void VirtualDisplay::Type(const QString& text) const {
  Ask({"type", "--delay", "5", text});
}

QString VirtualDisplay::FindWindow(const QString& title) const {
  const QString pattern = "^" + QRegularExpression::escape(title) + "$";
  const QString found = Ask({"search", "--onlyvisible", "--name", pattern});
  return found.section('\n', 0, 0);
}

QString VirtualDisplay::Ask(const QStringList& arguments) const {
  QProcess xdotool;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", name_);
  xdotool.setProcessEnvironment(environment);
  xdotool.start("xdotool", arguments);
  xdotool.waitForFinished(kPatience);
  return QString::fromUtf8(xdotool.readAllStandardOutput()).trimmed();
}

}  // namespace morvane
