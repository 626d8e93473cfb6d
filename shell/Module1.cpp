#include "shell/Module1.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QSettings>
#include <QTimer>
#include <QWindow>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <utility>

#include "platform/JpegWarnings.h"
#include "platform/PictureDecoding.h"
#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"
#include "shell/Termination.h"
#include "shell/ThumbnailCache.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "shell/frmText.h"
#include "shell/widgets/FocusStyle.h"
#include "shell/widgets/WholeScale.h"

namespace morvane {
namespace {

/// The delay at the start. The counter is volatile, so that the compiler keeps the loop.
void Count() {
  constexpr int kCount = 3000000;
  for (volatile int i = 1; i <= kCount;) i = i + 1;
}

/// Calls a function once, when the desktop has placed the window, so that dialogs are centred on
/// it. Owned by the window, whose native window must exist.
class WhenShown : public QObject {
 public:
  WhenShown(QWidget& window, std::function<void()> function)
      : QObject(&window), window_(*window.windowHandle()), function_(std::move(function)) {
    window_.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* /*shown*/, QEvent* event) override {
    if (event->type() == QEvent::Expose && window_.isExposed()) {
      window_.removeEventFilter(this);
      QTimer::singleShot(0, this, function_);
    }
    return false;
  }

 private:
  QWindow& window_;
  std::function<void()> function_;
};

/// What must be done before Qt starts.
void PrepareProcess() {
  // Without this, a file beyond the size limit of the session would end the process instead of
  // failing to save.
  std::signal(SIGXFSZ, SIG_IGN);
  qInstallMessageHandler(&TakeMessage);
  WatchJpegWarnings();
  QLoggingCategory::setFilterRules("qt.gui.imageio*.warning=false\nqt.qpa.theme.*.warning=false");
  UseWholeScaleFactors();
}

/// Gives the platform the window and the form that its functions show.
void Connect(QtPlatform& platform, frmMain& window) {
  platform.SetWindow(&window, [&window] { window.ShowState(); });
  platform.SetTextForm([&window](std::string& text) {
    frmText dialog(text, &window);
    if (dialog.exec() != QDialog::Accepted) return false;
    text = dialog.TextRTF();
    return true;
  });
}

/// Opens the map that a file manager passes as the argument; Qt has removed its own options.
void OpenArgument(frmMain& window, const char* argument) {
  std::error_code folderIsGone;
  const std::filesystem::path path = std::filesystem::absolute(argument, folderIsGone);
  window.Open(folderIsGone ? argument : path.string());
}

}  // namespace

void SetUpApplication() {
  QApplication::setStyle(new FocusStyle);
  // Strokes need every mouse event. The platform plugin has just enabled their compression.
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  QApplication::setApplicationName(kProgramName);
  QApplication::setDesktopFileName("org.morvane.Morvane");
  // Qt's dialogs would look at the folders of earlier runs first, and hang on a network folder that
  // is gone. So Qt's own settings get a path that can't exist.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

int RunMorvane(int argc, char** argv) {
  PrepareProcess();
  QApplication application(argc, argv);
  SetUpApplication();
  auto* splash = new frmSplash;
  splash->setAttribute(Qt::WA_DeleteOnClose);
  splash->ShowAtOnce();

  QApplication::setWindowIcon(LoadIcon("morvane"));
  QtPlatform platform;
  MainForm form(platform, &LoadArtSheet);
  frmMain window(form);
  Connect(platform, window);
  window.Prepare();
  const Termination termination(form);

  Count();
  splash->CloseWhenSeen();
  window.show();
  new WhenShown(window, [&] {
    window.ReportRescueCopies();
    if (argc > 1) OpenArgument(window, argv[1]);
  });
  const int status = QApplication::exec();
  // Static objects must not be destroyed while an abandoned decoder still runs.
  if (IsStillDecoding() || ThumbnailCache::AreBeingMade()) std::_Exit(status);
  return status;
}

}  // namespace morvane
