#include "shell/frmSplash.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include "shell/ArtSheets.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/SharpLines.h"

namespace morvane {

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName("frmSplash");
  setFixedSize(Px(6825), Px(2925));
  picture_ = LoadPhoto("splash", devicePixelRatioF());
  const QRect display = screen()->geometry();
  move(display.center() - rect().center());
}

void frmSplash::ShowAtOnce() {
  constexpr qint64 kLongestWait = 1000;  // ms, for a window system that never reports it
  show();
  QElapsedTimer waited;
  waited.start();
  while (!windowHandle()->isExposed() && waited.elapsed() < kLongestWait) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
  }
  repaint();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmSplash::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.drawPixmap(rect(), picture_);
  DrawSharpBox(painter, rect(), palette().color(QPalette::Shadow));
}

}  // namespace morvane
