#include "shell/Module1.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QSettings>
#include <QThread>
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
#include "shell/Thumbnails.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "shell/frmText.h"
#include "shell/widgets/FocusStyle.h"
#include "shell/widgets/WholeScale.h"

namespace morvane {
namespace {

constexpr int kCount = 3000000;
constexpr qint64 kShortestSplash = 400;  // ms; today's machines count too fast for the eye

void Count() {
  for (volatile int i = 1; i <= kCount;) {
    const int next = i + 1;
    i = next;
  }
}

/// The toolkit's dialogs would visit the folders of earlier runs before ours, and hang on one that
/// is gone from the network. Nothing but the settings file outlives a run: there is no folder where
/// the toolkit looks for its own settings, nor can there be one.
void ClearDialogHistory() {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

/// Calls a function once the window stands where the desktop put it: dialogs lie over the window.
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

/// Opens the map that a file manager passes as the argument; Qt has removed its own options.
void OpenArgument(frmMain& window, const char* argument) {
  std::error_code folderIsGone;
  const std::filesystem::path path = std::filesystem::absolute(argument, folderIsGone);
  window.Open(folderIsGone ? argument : path.string());
}

}  // namespace

int RunMorvane(int argc, char** argv) {
  // A file that grows beyond the limit of the session is a failed save, not the end of the run.
  std::signal(SIGXFSZ, SIG_IGN);
  qInstallMessageHandler(&TakeMessage);
  JpegWarnings::Install();
  QLoggingCategory::setFilterRules("qt.gui.imageio*.warning=false\nqt.qpa.theme.*.warning=false");
  UseWholeScaleFactors();
  QApplication application(argc, argv);
  QApplication::setStyle(new FocusStyle);
  // Strokes are as dense as the mouse reports them. The window system's plugin has just switched
  // compression on.
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  QApplication::setApplicationName(kProgramName);
  QApplication::setDesktopFileName("org.morvane.Morvane");
  auto* splash = new frmSplash;
  splash->setAttribute(Qt::WA_DeleteOnClose);
  splash->ShowAtOnce();
  QElapsedTimer shown;
  shown.start();

  QApplication::setWindowIcon(LoadIcon("morvane"));
  ClearDialogHistory();
  QtPlatform platform;
  MainForm form(platform, &LoadArtSheet);
  frmMain window(form);
  platform.SetWindow(&window, [&window] { window.ShowState(); });
  platform.SetTextForm([&window](std::string& text) {
    frmText dialog(text, &window);
    if (dialog.exec() != QDialog::Accepted) return false;
    text = dialog.TextRTF();
    return true;
  });
  window.Prepare();
  const Termination unaskedEnd(form);

  Count();
  const qint64 rest = kShortestSplash - shown.elapsed();
  if (rest > 0) QThread::msleep(static_cast<unsigned long>(rest));
  splash->close();
  window.show();
  new WhenShown(window, [&] {
    window.ReportRescueCopies();
    if (argc > 1) OpenArgument(window, argv[1]);
  });
  const int status = QApplication::exec();
  // A decoder that hangs in a picture given up long ago would be caught by the end of the program.
  if (IsStillDecoding() || Thumbnails::AreBeingMade()) std::_Exit(status);
  return status;
}

}  // namespace morvane
