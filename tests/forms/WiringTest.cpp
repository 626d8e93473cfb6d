#include "platform/NaturalOrder.h"
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

using Wiring = FormFixture;

TEST_F(Wiring, OutOfMemoryIsReportedAndExitEnds) {
  platform.memoryRunsOut = true;
  ClickTool("Open");
  EXPECT_EQ(Find<QLabel>("SimpleText")->text(), "There is not enough memory for this.");
  document.StatusText = std::string(300, 'w');  // too long for the status bar
  window.ShowState();
  EXPECT_EQ(Find("SimpleText")->toolTip(), QString(300, 'w'));
  platform.answers = {Answer::No};
  Choose("mnuFileExit");
  EXPECT_FALSE(window.isVisible() || QFile::exists("mvtmp.~mp"));
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
