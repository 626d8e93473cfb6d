#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "document/NewMap.h"
#include "document/PictureFile.h"
#include "palette/StampTurn.h"
#include "palette/TileSelection.h"
#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"
#include "tools/ToolModes.h"

namespace morvane {
namespace {

/// The map of scripts/tour, painted through the rules alone.
struct ExpectedTour {
  FakePlatform platform;
  MainForm form{platform, &LoadArtSheet};

  ExpectedTour() {
    platform.settings = {
        {"Map/Grid", "1"}, {"Color/Canvas", "16777215"}, {"Color/Grid", "12632256"}};
    form.Form_Initialize();
    form.Form_Resize(787, 537);
    platform.answers = {Answer::Yes};
    mnuFileNew_Click(form.document);
    PaintFloors();
    PaintEdges();
    PaintFurniture();
  }

  void Pick(const char* control) { Item_Click(form.palette, *FindItem(control)); }
  void Press(int X, int Y, int button = kLeftButton) {
    Canvas_MouseDown(form.palette, button, static_cast<float>(X), static_cast<float>(Y));
  }
  void Cell(int x, int y) { Press(x * 20 + 8, y * 20 + 8); }
  /// A press in each cell from one place to the other.
  void Line(int x1, int y1, int x2, int y2) {
    for (int x = x1; x <= x2; x += 20) {
      for (int y = y1; y <= y2; y += 20) Press(x, y);
    }
  }

  void PaintFloors() {
    Pick("pb4040");
    for (const int y : {2, 4, 6}) {
      for (int x = 5; x <= 17; x += 2) Cell(x, y);
    }
    Pick("pbfloor");
    Line(168, 168, 228, 228);
  }
  void PaintEdges() {
    WallButton_Click(form.palette);
    Line(110, 40, 370, 40);
    Line(110, 160, 370, 160);
    Line(100, 50, 100, 150);
    Line(380, 50, 380, 150);
    Line(160, 170, 160, 230);
    Line(240, 170, 240, 230);
    Line(170, 240, 230, 240);
    WallButton_Click(form.palette);
    Press(100, 90);
    Press(190, 160);
    Press(350, 160, kRightButton);
  }
  void PaintFurniture() {
    Pick("pbwoodenbench");
    for (const int x : {6, 9, 12}) {
      Cell(x, 3);
      Cell(x, 6);
    }
    const std::vector<std::tuple<const char*, int, int>> rest = {
        {"pbroundtable", 9, 9}, {"pbaltar", 16, 4}, {"pbpentagramglow", 14, 4}, {"pbrug", 11, 4}};
    for (const auto& [control, x, y] : rest) {
      Pick(control);
      Cell(x, y);
    }
    Pick("pbbed");
    Rotate_Click(form.palette);
    Cell(8, 9);
  }
};

TEST(Tour, PaintsItsMapThroughTheRealProgram) {
  const QTemporaryDir folder;
  QProcess tour;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("MORVANE_PROGRAM", MORVANE_PROGRAM);
  environment.remove("XDG_RUNTIME_DIR");
  environment.remove("DBUS_SESSION_BUS_ADDRESS");
  tour.setProcessEnvironment(environment);
  tour.setProcessChannelMode(QProcess::ForwardedOutputChannel);
  tour.start(MORVANE_TOUR, {folder.filePath("out")});
  ASSERT_TRUE(tour.waitForFinished(280'000));
  ASSERT_EQ(tour.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(tour.readAllStandardError().toStdString(), "") << "the program talks to the terminal";
  ASSERT_EQ(tour.exitCode(), 0);

  QtPlatform platform;
  Result<LoadedPicture> saved = LoadPicture(platform, folder.filePath("out/map.bmp").toStdString());
  ASSERT_TRUE(saved.Ok()) << saved.Reason();
  Picture& map = saved.Value().picture;
  for (const char* name : {"out/again.bmp", "out/outside.bmp"}) {
    Result<LoadedPicture> again = LoadPicture(platform, folder.filePath(name).toStdString());
    ASSERT_TRUE(again.Ok()) << again.Reason();
    EXPECT_EQ(Difference(again.Value().picture, map), "") << name;
  }
  const ExpectedTour expected;
  Picture rest(expected.form.document.Canvas.Image());
  // The custom picture and the text are looked at by themselves.
  const Rect custom = {100, 80, 140, 120};
  const Rect text = {108, 262, 420, 290};
  int letters = 0;
  for (int y = text.top; y < text.bottom; ++y) {
    for (int x = text.left; x < text.right; ++x) {
      const Pixel pixel = map.Row(y)[x];
      if (pixel == PixelOf(0))
        ++letters;
      else
        EXPECT_EQ(pixel, rest.Row(y)[x]) << x << "," << y;
    }
  }
  EXPECT_GT(letters, 300);
  EXPECT_FALSE(Cut(map.View(), custom) == Cut(rest.View(), custom));
  for (const Rect& part : {custom, text}) {
    FillBox(map.Draw(), part, 0);
    FillBox(rest.Draw(), part, 0);
  }
  EXPECT_EQ(Difference(map, rest), "");
  for (const char* picture : {"map", "window", "new-map", "options", "about", "insert-text", "font",
                              "custom", "open", "save-as", "save-question", "step-1-new-map",
                              "step-2-floor", "step-3-walls", "step-4-furniture", "step-5-text"}) {
    EXPECT_TRUE(QFile::exists(folder.filePath(QString("out/%1.png").arg(picture)))) << picture;
  }
}

}  // namespace
}  // namespace morvane
