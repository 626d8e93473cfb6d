#include <QAbstractScrollArea>
#include <QAction>
#include <QFrame>
#include <QPaintEvent>
#include <QToolBar>

#include "document/Blit.h"
#include "palette/PalettePages.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// Adds up what a widget is asked to paint.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }
  QRegion painted;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

struct CanvasForm : FormFixture {
  Color At(int x, int y) const { return GetPixel(form.document.Canvas.Image(), x, y); }
  PictureView Floor() const { return form.palette.pictures.Of(*FindItem("pbfloor")).View(); }
  void Move(QWidget* widget, QPoint place) {
    form.palette.Shape1.Visible = true;
    QTest::mouseMove(widget, place);
    QCoreApplication::processEvents();
  }
  bool OutlineShows() const { return form.palette.Shape1.Visible; }
};

TEST_F(CanvasForm, ButtonsReachTheMapAtThePixelUnderThePointer) {
  NewMap();
  Press(60, 60);
  EXPECT_EQ(At(60, 60), GetPixel(Floor(), 0, 0));
  EXPECT_EQ(At(59, 60), 0U);
  Press(78, 78, Qt::MiddleButton);
  EXPECT_NE(At(60, 60), 0U);
  Press(78, 78, Qt::RightButton);
  EXPECT_EQ(At(60, 60), 0U);
  Press(79, 60);
  EXPECT_EQ(At(60, 60), 0U);
}

TEST_F(CanvasForm, TheBorderIsNoPartOfTheMap) {
  EXPECT_EQ(Find("Canvas")->cursor().shape(), Qt::CrossCursor);
  const QRect inside = Find<QFrame>("Canvas")->contentsRect();
  EXPECT_EQ(inside, QRect(2, 2, 615, 483));
  QTest::mouseClick(Find("Canvas"), Qt::LeftButton, {}, {1, 30});
  QTest::mouseClick(Find("Canvas"), Qt::LeftButton, {}, {617, 30});
  EXPECT_FALSE(form.document.mnuEditUndoEnabled);
}

TEST_F(CanvasForm, ASecondPressOfADoubleClickIsAPress) {
  Press(50, 50);
  QTest::mouseDClick(Find("Canvas"), Qt::LeftButton, {}, {52, 52});
  ASSERT_TRUE(form.document.mnuEditUndoEnabled);
  Choose("mnuEditUndo");
  EXPECT_EQ(At(48, 48), GetPixel(Floor(), 8, 8));  // the first press stands
}

TEST_F(CanvasForm, TheScreenShowsTheMapAndRepaintsOnlyWhatChanged) {
  NewMap();
  QCoreApplication::processEvents();
  PaintWatch watch(Find("Canvas"));
  Press(105, 65);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !watch.painted.isEmpty(); }));
  EXPECT_EQ(watch.painted.boundingRect(), QRect(102, 62, 20, 20));
  const QImage shown = Find("Canvas")->grab().toImage();
  for (int y = 0; y < 483; ++y) {
    for (int x = 0; x < 615; ++x) {
      ASSERT_EQ(shown.pixel(x + 2, y + 2), form.document.Canvas.Image().Row(y)[x]);
    }
  }
}

TEST_F(CanvasForm, TheOutlineVanishesOverTheNamedControlsWithAllThatTheyHold) {
  Move(Client(), {100, 470});
  EXPECT_FALSE(OutlineShows()) << "the window itself";
  for (const char* name : {"TabStrip1", "tbToolBar", "sbStatusBar"}) {
    Move(Find(name), Find(name)->rect().bottomRight() - QPoint(3, 3));
    EXPECT_FALSE(OutlineShows()) << name;
  }
  Move(Find("TabStrip1"), {10, 10});
  EXPECT_FALSE(OutlineShows()) << "a tab";
  auto* bar = Find<QToolBar>("tbToolBar");
  QAction* undo = bar->findChild<QAction*>("Undo");
  undo->setEnabled(false);
  Move(bar->widgetForAction(undo), {5, 5});
  EXPECT_FALSE(OutlineShows()) << "a disabled button";
  for (const char* name : {"pbfloor", "Frame1-1", "Label3", "Picture1", "WallButton"}) {
    Move(Find(name), Find(name)->rect().bottomRight() - QPoint(2, 2));
    EXPECT_TRUE(OutlineShows()) << name;
  }
  TileSetSelector_Click(form.palette, kCustomSet);
  window.ShowState();
  const auto viewport = [this](const char* list) {
    return Find<QAbstractScrollArea>(list)->viewport();
  };
  Move(viewport("File1"), {5, 5});
  EXPECT_FALSE(OutlineShows()) << "a row of File1";
  Move(Find("Frame5"), {2, 100});
  EXPECT_FALSE(OutlineShows()) << "Frame5";
  Move(viewport("Dir1"), {5, 5});
  EXPECT_TRUE(OutlineShows()) << "Dir1";
}

}  // namespace
}  // namespace morvane
