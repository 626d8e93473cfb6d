
#include "platform/NaturalOrder.h"
#include "shell/frmAbout.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// Collects the region that a widget repaints.
struct PaintWatch : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
  QRegion painted;
};

struct Wiring : FormFixture {
  /// Expects lines on the background of a form, and nothing else.
  static void ExpectLines(QWidget& form, const std::vector<QRect>& lines) {
    QPixmap background(form.size());
    form.render(&background, {}, {}, QWidget::DrawWindowBackground);
    const QColor color = background.toImage().pixelColor(1, 1);
    QRegion designed;
    for (const QRect& line : lines) designed += line;
    const QRegion wrong = designed.xored(background.createMaskFromColor(color));
    EXPECT_TRUE(wrong.isEmpty()) << wrong.boundingRect().x() << ", " << wrong.boundingRect().y();
  }
};

TEST_F(Wiring, SomeCommandsDoNothing) {
  window.activateWindow();
  for (const char* tool : {"Redo", "Cut", "Copy", "Paste"}) ClickTool(tool);
  for (const char* keys : {"Ctrl+R", "Ctrl+X", "Ctrl+C", "Ctrl+V", "F1"}) {
    QTest::keySequence(Find("Canvas"), QKeySequence(keys));
  }
  EXPECT_TRUE(platform.boxes.empty() && platform.dialogs.empty() && platform.printed.empty());
}

TEST_F(Wiring, OutOfMemoryIsReportedAndExitEnds) {
  platform.memoryRunsOut = true;
  ClickTool("Open");
  EXPECT_EQ(Find<QLabel>("SimpleText")->text(), "There is not enough memory for this.");
  platform.answers = {Answer::No};
  Choose("mnuFileExit");
  EXPECT_FALSE(window.isVisible() || QFile::exists("mvtmp.~mp"));
}

TEST_F(Wiring, LinesAndLayersAreAsDesigned) {
  ExpectLines(*Client(), {{4, 32, 157, 1},
                          {4, 80, 158, 1},
                          {4, 155, 157, 1},
                          {80, 32, 1, 49},
                          {120, 80, 1, 76},
                          {48, 80, 1, 76}});
  EXPECT_EQ(Client()->childAt(172, 45), Find("Canvas")) << "above the labels that reach under it";
  EXPECT_EQ(Find("Frame1-1")->childAt(24, 5), Find("pbmarking")) << "the later of two tiles";
  frmAbout about(platform, &window);
  ExpectLines(about, {{15, 162, 363, 1}});
  const QImage map = Shown(*Find("Canvas"));
  QImage sunken = map;
  QPainter painter(&sunken);
  qDrawWinPanel(&painter, sunken.rect(), window.palette(), true);
  painter.end();
  EXPECT_EQ(map, sunken);
  document.StatusText = std::string(300, 'w');  // too long for the status bar
  window.ShowState();
  EXPECT_EQ(Find("SimpleText")->toolTip(), QString(300, 'w'));
}

TEST_F(Wiring, EveryItemShowsItsPicture) {
  for (const Item& item : Items()) {
    const PictureView picture = palette.pictures.Of(item).View();
    const QImage shown = Shown(*Find(TextOf(item.control)));
    for (int i = 2; i < 18; ++i) ASSERT_EQ(shown.pixel(i, i), picture.Row(i)[i]) << item.control;
  }
  const QImage plain = Shown(*Find("pbmarking"));
  QTest::mouseMove(Find("pbmarking"), {10, 10});
  EXPECT_TRUE(Shown(*Find("pbmarking")) != plain) << "the frame of the tile under the pointer";
  palette.Shape1.Visible = true;
  QTest::mouseMove(Client(), {4, 400});
  EXPECT_FALSE(palette.Shape1.Visible) << "the outline is hidden over the background of the window";
}

TEST_F(Wiring, TheMapTakesPressesInsideItsBorderAndDragsFromThere) {
  QWidget* canvas = Find("Canvas");
  QTest::mouseClick(canvas, Qt::LeftButton, {}, {1, 30});
  QTest::mouseClick(canvas, Qt::LeftButton, {}, {617, 30});
  EXPECT_FALSE(document.mnuEditUndoEnabled);
  QTest::mousePress(canvas, Qt::LeftButton, {}, {52, 52});
  QTest::mousePress(canvas, Qt::RightButton, {}, {-10, 600});  // while the left one is held
  QTest::mouseRelease(canvas, Qt::LeftButton, {}, {52, 52});
  EXPECT_TRUE(document.mnuEditUndoEnabled);
  platform.answers = {Answer::Yes};
  Choose("mnuFileNew");
  for (const double x : {98.5, 219.5}) {  // fractional positions, as at 200 %
    QMouseEvent press(QEvent::MouseButtonPress, {x + 2, 112}, {}, Qt::LeftButton, Qt::LeftButton,
                      {});
    QCoreApplication::sendEvent(canvas, &press);
  }
  const PictureView map = document.Canvas.Image();
  const PictureView floor = palette.pictures.Of(*FindItem("pbfloor")).View();
  EXPECT_EQ(GetPixel(map, 80, 100), GetPixel(floor, 0, 0));
  EXPECT_EQ(GetPixel(map, 220, 100), 0U);
}

TEST_F(Wiring, OnlyWhatChangedIsRepainted) {
  QCoreApplication::processEvents();
  PaintWatch watch;
  Find("Canvas")->installEventFilter(&watch);
  for (const int x : {100, 300}) {
    watch.painted = QRegion();
    Press(x + 5, 65);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !watch.painted.isEmpty(); }));
    EXPECT_EQ(watch.painted.boundingRect(), QRect(x + 2, 62, 20, 20));
  }
}

TEST(NaturalOrder, NumbersCountAsNumbersAndCaseDoesNot) {
  const std::vector<std::string> expected = {
      "a9",          "eben",   "Ébène", "Tile",   "tile 1.bmp", "Tile 2.bmp", "tile 007.bmp",
      "tile 10.bmp", "tile a", "tiles", "wall-1", "Wall2",      "漢"};
  std::vector<std::string> names(expected.rbegin(), expected.rend());
  SortNaturally(names);
  EXPECT_EQ(names, expected);
}

}  // namespace
}  // namespace morvane
