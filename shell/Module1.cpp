#include "shell/Module1.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "shell/frmText.h"

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
/// is gone from the network. Nothing but the settings file outlives a run.
void ForgetDialogHistory() {
  static const QTemporaryDir kThrownAway;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, kThrownAway.path());
}

}  // namespace

int RunMorvane(int argc, char** argv) {
  // Map pixels stay square and sharp: only whole-number scale factors.
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Round);
  QApplication application(argc, argv);
  // Strokes are as dense as the mouse reports them. The window system's plugin has just switched
  // compression on.
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  QApplication::setApplicationName(kProgramName);
  QApplication::setWindowIcon(LoadIcon("morvane"));
  ForgetDialogHistory();

  frmSplash splash;
  splash.ShowAtOnce();
  QElapsedTimer shown;
  shown.start();

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

  Count();
  const qint64 rest = kShortestSplash - shown.elapsed();
  if (rest > 0) QThread::msleep(static_cast<unsigned long>(rest));
  splash.close();
  window.show();
  return QApplication::exec();
}

}  // namespace morvane
