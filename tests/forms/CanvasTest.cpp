#include <QAbstractScrollArea>
#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QToolBar>

#include "document/picture/Blit.h"
#include "palette/PalettePages.h"
#include "shell/CanvasView.h"
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

TEST_F(CanvasForm, TheBorderIsNoPartOfTheMap) {
  EXPECT_EQ(Find("Canvas")->cursor().shape(), Qt::CrossCursor);
  const QRect inside = Find<QFrame>("Canvas")->contentsRect();
  EXPECT_EQ(inside, QRect(2, 2, 615, 483));
  QTest::mouseClick(Find("Canvas"), Qt::LeftButton, {}, {1, 30});
  QTest::mouseClick(Find("Canvas"), Qt::LeftButton, {}, {617, 30});
  EXPECT_FALSE(form.document.mnuEditUndoEnabled);
}

TEST_F(CanvasForm, BesideTheMapAPressCountsOnlyWhileAButtonPressedOnItIsHeld) {
  QWidget* canvas = Find("Canvas");
  std::vector<QPoint> presses;
  QObject::connect(static_cast<CanvasView*>(canvas), &CanvasView::Pressed, canvas,
                   [&](int, float X, float Y) { presses.emplace_back(int(X), int(Y)); });
  QTest::mousePress(canvas, Qt::LeftButton, {}, {52, 52});
  QTest::mousePress(canvas, Qt::RightButton, {}, {-10, 600});
  EXPECT_EQ(presses, (std::vector<QPoint>{{50, 50}, {-12, 598}}));
  for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
    QTest::mouseRelease(canvas, button, {}, {52, 52});
  }
  QTest::mousePress(canvas, Qt::LeftButton, {}, {1, 30});
  QTest::mousePress(canvas, Qt::RightButton, {}, {-10, 600});
  EXPECT_EQ(presses.size(), 2U);
  for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
    QTest::mouseRelease(canvas, button, {}, {1, 30});
  }
}

TEST_F(CanvasForm, OnFineDisplaysAPositionBelongsToThePixelThatItLiesIn) {
  NewMap();
  const auto pressAt = [this](double x, double y) {
    QMouseEvent press(QEvent::MouseButtonPress, {x + 2, y + 2},
                      Find("Canvas")->mapToGlobal(QPointF(x + 2, y + 2)), Qt::LeftButton,
                      Qt::LeftButton, {});
    QCoreApplication::sendEvent(Find("Canvas"), &press);
  };
  pressAt(98.5, 110);
  EXPECT_EQ(At(80, 100), GetPixel(Floor(), 0, 0));
  pressAt(219.5, 110);
  EXPECT_EQ(At(220, 100), 0U);
  pressAt(614.5, 482.5);
  EXPECT_EQ(At(614, 482), GetPixel(Floor(), 14, 2));
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
  const QImage shown = Shown(*Find("Canvas"));
  for (int y = 0; y < 483; ++y) {
    for (int x = 0; x < 615; ++x) {
      ASSERT_EQ(shown.pixel(x + 2, y + 2), form.document.Canvas.Image().Row(y)[x]);
    }
  }
}

TEST_F(CanvasForm, TheOutlineLiesOverTheMapInItsExactColour) {
  NewMap();
  QTest::mouseClick(Find("pb4040"), Qt::LeftButton);
  Move(Find("Canvas"), {2 + 105, 2 + 65});
  const QImage shown = Shown(*Find("Canvas"));
  const QRgb outline = qRgb(0, 106, 236);
  const QRect outer(102, 62, 40, 40);
  for (int y = 50; y < 120; ++y) {
    for (int x = 90; x < 160; ++x) {
      const bool on = outer.contains(x, y) && !outer.adjusted(2, 2, -2, -2).contains(x, y);
      ASSERT_EQ(shown.pixel(x, y), on ? outline : qRgb(0, 0, 0)) << x << "," << y;
    }
  }
  EXPECT_EQ(At(100, 60), 0U);
  PaintWatch watch(Find("Canvas"));
  Move(Find("Canvas"), {2 + 125, 2 + 65});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !watch.painted.isEmpty(); }));
  EXPECT_FALSE(watch.painted.contains(QPoint(132, 82)));  // inside both outlines
}

TEST_F(CanvasForm, HeldButtonsArriveAsAMaskAndKeepReportingOutside) {
  NewMap();
  auto* canvas = Find("Canvas");
  const auto drag = [canvas](QPoint pixel, Qt::MouseButtons held) {
    QMouseEvent move(QEvent::MouseMove, QPointF(pixel + QPoint(2, 2)),
                     canvas->mapToGlobal(QPointF(pixel + QPoint(2, 2))), Qt::NoButton, held, {});
    QCoreApplication::sendEvent(canvas, &move);
  };
  drag({-30, 100}, Qt::LeftButton);
  EXPECT_EQ(At(0, 100), GetPixel(Floor(), 0, 0));
  drag({300, 100}, Qt::LeftButton | Qt::RightButton);
  EXPECT_EQ(At(300, 100), 0U);
  QTest::mouseClick(Find("WallButton"), Qt::LeftButton);
  QTest::mouseClick(Find("WallButton"), Qt::LeftButton);
  const auto* secret =
      form.palette.pictures.Of(kAbandonedCathedral, Edge::SecretDoor, Direction::Vertical);
  drag({201, 110}, Qt::LeftButton | Qt::RightButton);
  EXPECT_EQ(At(197, 102), GetPixel(secret->View(), 0, 0));
  drag({241, 110}, Qt::MiddleButton);
  EXPECT_EQ(At(237, 102), GetPixel(secret->View(), 0, 0));
}

TEST_F(CanvasForm, KeysActOnlyWhileTheMapHasTheFocus) {
  auto* mode = Find<QLabel>("lbMode");
  Find("Canvas")->setFocus();
  QTest::keyClick(Find("Canvas"), Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(mode->text(), "Wall");
  QTest::mouseClick(Find("pbbed"), Qt::LeftButton);
  EXPECT_EQ(mode->text(), "Tile");
  QTest::keyClick(Find("Canvas"), Qt::Key_Right);
  EXPECT_EQ(Find("Picture1")->size(), QSize(20, 40));
  QTest::mouseClick(Find("Rotate"), Qt::LeftButton);
  EXPECT_EQ(Find("Picture1")->size(), QSize(40, 20));
  EXPECT_TRUE(Find("Rotate")->hasFocus());
  QTest::keyClick(Find("Rotate"), Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(mode->text(), "Tile");
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
