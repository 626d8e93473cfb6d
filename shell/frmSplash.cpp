#include "shell/frmSplash.h"

#include <QCoreApplication>
#include <QPainter>
#include <QScreen>
#include <QThread>
#include <QWindow>

#include "shell/ArtSheets.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/SharpLines.h"

namespace morvane {

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName("frmSplash");
  setFixedSize(Px(6825), Px(2925));
  picture_ = LoadPhoto("splash", devicePixelRatioF());
  move(screen()->geometry().center() - rect().center());
}

void frmSplash::ShowAtOnce() {
  constexpr qint64 kTimeout = 1000;  // ms, for a window system that never reports it
  show();
  QElapsedTimer waited;
  waited.start();
  while (!windowHandle()->isExposed() && waited.elapsed() < kTimeout) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
  }
  repaint();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  shown_.start();
}

void frmSplash::CloseWhenSeen() {
  constexpr qint64 kShortest = 400;  // ms; loading takes less
  const qint64 rest = kShortest - shown_.elapsed();
  if (rest > 0) QThread::msleep(static_cast<unsigned long>(rest));
  close();
}

void frmSplash::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.drawPixmap(rect(), picture_);
  DrawSharpBox(painter, rect(), palette().color(QPalette::Shadow));
}

}  // namespace morvane
