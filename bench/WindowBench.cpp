#include <QMouseEvent>
#include <memory>

#include "bench/BenchEditor.h"
#include "bench/Benches.h"
#include "bench/TempFolder.h"
#include "shell/frmMain.h"

namespace morvane::bench {
namespace {

constexpr int kShownMoves = 400;

/// Counts how often a widget is painted.
class PaintCounter : public QObject {
 public:
  int paints = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
};

/// The real main window.
struct Window {
  YesPlatform platform;
  MainForm form{platform, &LoadArtSheet};
  PaintCounter counter;
  frmMain window{form};
  QWidget* canvas = window.findChild<QWidget*>("Canvas");

  Window() {
    platform.SetWindow(&window, [this] { window.ShowState(); });
    canvas->installEventFilter(&counter);
    window.show();
    QCoreApplication::processEvents();
  }

  /// Moves pixel by pixel. Each move is painted before the next one.
  void MoveAlong(Qt::MouseButtons held) const {
    for (int x = 50; x < 50 + kShownMoves; ++x) {
      const QPoint place(x, x / 4 + 40);
      QCoreApplication::postEvent(
          canvas, new QMouseEvent(QEvent::MouseMove, place, canvas->mapToGlobal(place),
                                  Qt::NoButton, held, Qt::NoModifier));
      // The repaint is a posted event.
      QCoreApplication::processEvents();
      QCoreApplication::processEvents();
    }
  }
};

void AddMoves(RatioTable& table, const std::shared_ptr<Window>& window, const std::string& name,
              Qt::MouseButtons held, int leastPaints) {
  window->counter.paints = 0;
  window->MoveAlong(held);
  Require(window->counter.paints >= leastPaints, "The window doesn't paint its moves");
  Comparison(table, {.name = name, .pieces = kShownMoves}, [=] {
    window->MoveAlong(held);
  }).Absolute(PerSecond(20'000));
}

}  // namespace

void AddWindow(RatioTable& table) {
  const TempFolder folder;
  folder.Enter();
  const auto window = std::make_shared<Window>();
  AddMoves(table, window, "Moves of a stroke in the window, each painted", Qt::LeftButton,
           kShownMoves * 4 / 5);
  AddMoves(table, window, "Moves that hover in the window", Qt::NoButton, kShownMoves / 20);
}

}  // namespace morvane::bench
