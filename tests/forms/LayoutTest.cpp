#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QTabBar>

#include "shell/frmSplash.h"
#include "shell/widgets/SharpLines.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

using Layout = FormFixture;

struct Place {
  const char* control;
  QRect rect;
};

/// Designed places in pixels, in the client area of the window.
const std::vector<Place> kPlaces = {
    {"tbToolBar", {0, 0, 787, 28}},
    {"sbStatusBar", {0, 519, 787, 18}},
    {"Canvas", {168, 32, 619, 487}},
    {"WallButton", {8, 42, 28, 27}},
    {"Label4", {42, 40, 41, 17}},
    {"lbMode", {42, 56, 33, 17}},
    {"Label1", {86, 40, 89, 17}},
    {"Label2", {86, 56, 118, 17}},
    {"Picture1", {55, 88, 20, 20}},
    {"FlipVertical", {8, 88, 28, 27}},
    {"FlipHorizontal", {128, 88, 28, 27}},
    {"RotateLeft", {8, 120, 28, 27}},
    {"Rotate", {128, 120, 28, 27}},
    {"Label3", {8, 165, 49, 17}},
    {"TileSetSelector", {50, 163, 110, 22}},
    {"TabStrip1", {8, 192, 154, 209}},
    {"TabStrip2", {8, 192, 154, 209}},
    {"TabStrip3", {8, 192, 153, 209}},
    {"TabStrip4", {8, 192, 154, 257}},
    {"Frame1-1", {16, 224, 142, 165}},
    {"Frame1-3", {16, 224, 145, 169}},
    {"Frame2-1", {16, 224, 142, 161}},
    {"Frame3-2", {16, 224, 142, 169}},
    {"Frame4-3", {16, 224, 145, 217}},
    {"Frame5", {8, 192, 153, 321}},
};

TEST_F(Layout, ControlsStandAtTheirDesignedPlaces) {
  ASSERT_EQ(Client()->size(), QSize(787, 537));
  for (const Place& place : kPlaces) {
    QWidget* control = Find(place.control);
    EXPECT_EQ(control->parentWidget(), Client()) << place.control;
    EXPECT_EQ(control->geometry(), place.rect) << place.control;
  }
  const std::vector<Place> inFrame5 = {{"Drive1", {8, 16, 73, 21}},
                                       {"Label5", {88, 20, 57, 17}},
                                       {"Dir1", {8, 40, 137, 81}},
                                       {"File1", {8, 120, 137, 188}}};
  for (const Place& place : inFrame5) {
    EXPECT_EQ(Find(place.control)->parentWidget(), Find("Frame5"));
    EXPECT_EQ(Find(place.control)->geometry(), place.rect) << place.control;
  }
}

TEST_F(Layout, TextsFitTheirPlaces) {
  for (const char* name : {"Label1", "Label3", "Label4", "lbMode"}) {
    auto* label = Find<QLabel>(name);
    EXPECT_LE(label->sizeHint().width(), label->width()) << name;
    EXPECT_LE(label->fontMetrics().height(), label->height()) << name;
  }
  QTest::mouseClick(Find("pgexplodedskeleton"), Qt::LeftButton);
  auto* tile = Find<QLabel>("Label2");
  EXPECT_EQ(tile->text(), "Exploded Skeleton");
  EXPECT_LE(tile->x() + tile->sizeHint().width(), Find("Canvas")->x());
  for (const char* name : {"TabStrip1", "TabStrip3", "TabStrip4"}) {
    auto* tabs = Find(name)->findChild<QTabBar*>();
    EXPECT_LE(tabs->sizeHint().width(), Find(name)->width()) << name;
  }
}

TEST_F(Layout, LinesFormTheBoxesOfTheLeftColumn) {
  const QImage picture = Shown(*Client());
  const QRgb ground = Client()->palette().color(QPalette::Window).rgb();
  const QRgb line = QuietLine(Client()->palette()).rgb();
  const std::vector<QLine> lines = {{4, 32, 160, 32}, {4, 80, 161, 80},    {4, 155, 160, 155},
                                    {80, 32, 80, 80}, {120, 80, 120, 155}, {48, 80, 48, 155}};
  for (const QLine& l : lines) {
    EXPECT_EQ(picture.pixel(l.p1()), line);
    EXPECT_EQ(picture.pixel(l.p2()), line);
    EXPECT_EQ(picture.pixel(l.center()), line);
  }
  EXPECT_EQ(picture.pixel(3, 32), ground);
  EXPECT_EQ(picture.pixel(162, 80), ground);
  EXPECT_EQ(picture.pixel(80, 82), ground);
}

TEST_F(Layout, ResizingMovesOnlyTheMapAndTheBars) {
  window.resize(window.width() + 200, window.height() + 100);
  EXPECT_EQ(Find("Canvas")->geometry(), QRect(168, 32, 819, 587));
  EXPECT_EQ(Find("sbStatusBar")->geometry(), QRect(0, 619, 987, 18));
  EXPECT_EQ(Find("tbToolBar")->width(), 987);
  EXPECT_EQ(Find("TabStrip1")->geometry(), QRect(8, 192, 154, 209));
  Choose("mnuViewStatusBar");
  EXPECT_FALSE(Find("sbStatusBar")->isVisible());
  EXPECT_FALSE(Find<QAction>("mnuViewStatusBar")->isChecked());
  EXPECT_EQ(Find("Canvas")->height(), 605);
  Choose("mnuViewStatusBar");
  EXPECT_TRUE(Find("sbStatusBar")->isVisible());
  EXPECT_TRUE(Find<QAction>("mnuViewStatusBar")->isChecked());
  EXPECT_EQ(Find("Canvas")->height(), 587);
}

TEST_F(Layout, PreparingTheWindowChangesNothingThatIsSeen) {
  MainForm otherForm{platform, &LoadArtSheet};
  frmMain prepared{otherForm};
  prepared.Prepare();
  EXPECT_FALSE(prepared.isVisible());
  prepared.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&prepared));
  EXPECT_EQ(prepared.size(), window.size());
  EXPECT_EQ(otherForm.document.Canvas.ScaleWidth(), form.document.Canvas.ScaleWidth());
  EXPECT_EQ(prepared.grab().toImage(), window.grab().toImage());
}

TEST_F(Layout, TheMapLiesAboveTheLabelsThatReachUnderIt) {
  QWidget* at = Client()->childAt(172, 45);
  EXPECT_EQ(at, Find("Canvas"));
}

TEST(Splash, ShowsItsPicture) {
  frmSplash splash;
  splash.ShowAtOnce();
  EXPECT_EQ(splash.size(), QSize(455, 195));
  EXPECT_GT(Shown(splash).pixelColor(227, 97).red(), 60);
}

}  // namespace
}  // namespace morvane
