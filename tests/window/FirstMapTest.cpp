#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "document/Blit.h"
#include "document/PictureFile.h"
#include "palette/TilePictures.h"
#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"
#include "tests/support/Difference.h"
#include "tests/window/VirtualDisplay.h"

namespace morvane {
namespace {

constexpr QSize kDesigned = {787, 537};
constexpr QPoint kMapInClient = {168 + 2, 32 + 2};

struct FirstMap : testing::Test {
  VirtualDisplay display;
  QTemporaryDir folder;
  std::unique_ptr<QProcess> program;
  QString window;
  QPoint map;  ///< its top left pixel in the window

  void StartProgram() {
    ASSERT_TRUE(display.IsRunning()) << "Xvfb doesn't start";
    QFile settings(folder.filePath("Morvane.ini"));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[Map]\nGrid=1\n[Color]\nCanvas=16777215\nGrid=12632256\n");
    settings.close();
    program = display.Start(MORVANE_PROGRAM, folder.path());
    window = display.WaitForWindow("Morvane", kDesigned);
    ASSERT_FALSE(window.isEmpty()) << "the main window doesn't come up";
    // The menu bar stands above the designed client area.
    const int menuHeight = display.SizeOf(window).height() - kDesigned.height();
    map = QPoint(0, menuHeight) + kMapInClient;
  }

  void Press(int x, int y, int button) { display.Click(window, map + QPoint(x, y), button); }

  void Answer(const char* question, const char* key) {
    ASSERT_FALSE(display.WaitForWindow(question).isEmpty()) << question;
    display.Key(key);
    ASSERT_TRUE(display.WaitUntilGone(question)) << question;
  }

  void ChooseFile(const char* dialog, const QString& name) {
    ASSERT_FALSE(display.WaitForWindow(dialog).isEmpty()) << dialog;
    display.Type(folder.filePath(name));
    display.Key("Return");
    ASSERT_TRUE(display.WaitUntilGone(dialog)) << dialog;
    ASSERT_FALSE(display.WaitForWindow("Morvane - " + name).isEmpty());
  }

  void TearDown() override {
    if (program == nullptr) return;
    program->kill();
    program->waitForFinished();
  }

  Picture Load(const char* name) {
    QtPlatform platform;
    Result<Picture> read = LoadPicture(platform, folder.filePath(name).toStdString());
    EXPECT_TRUE(read.Ok()) << read.Reason();
    return read.Ok() ? read.Value() : Picture();
  }
};

Picture ExpectedMap() {
  Picture map(615, 483);
  for (int x = 19; x < 615; x += 20) DrawColumn(map.Draw(), x, 0xC0C0C0);
  for (int y = 19; y < 483; y += 20) DrawRow(map.Draw(), y, 0xC0C0C0);
  const TilePictures pictures(&LoadArtSheet);
  const PictureView floor = pictures.Of(*FindItem("pbfloor")).View();
  for (const auto& [x, y] : {std::pair{40, 40}, {0, 0}, {300, 220}, {600, 480}}) {
    BitBlt(map.Draw(), x, y, 20, 20, floor, 0, 0);
  }
  return map;
}

TEST_F(FirstMap, IsPaintedSavedAndOpenedAgain) {
  ASSERT_NO_FATAL_FAILURE(StartProgram());
  display.Key("ctrl+n");
  ASSERT_NO_FATAL_FAILURE(Answer("New map", "y"));
  Press(50, 45, 1);
  Press(39, 19, 1);
  Press(319, 230, 1);  // on a grid line: refused
  Press(301, 239, 1);  // the same
  Press(318, 220, 1);
  Press(614, 482, 1);
  Press(105, 105, 1);
  Press(118, 118, 3);  // erased again
  display.Key("ctrl+s");
  ASSERT_NO_FATAL_FAILURE(ChooseFile("Save As", "first.bmp"));
  EXPECT_EQ(Difference(Load("first.bmp"), ExpectedMap()), "");

  Press(205, 205, 1);
  display.Key("ctrl+o");
  ASSERT_NO_FATAL_FAILURE(ChooseFile("Open", "first.bmp"));
  display.Key("F12");
  ASSERT_NO_FATAL_FAILURE(ChooseFile("Save As", "second.bmp"));
  EXPECT_EQ(Difference(Load("second.bmp"), ExpectedMap()), "");

  Press(205, 205, 1);
  display.Key("ctrl+z");
  display.Key("alt+F4");
  ASSERT_FALSE(display.WaitForWindow("Save?").isEmpty());
  display.Key("y");
  ASSERT_FALSE(display.WaitForWindow("Morvane").isEmpty());  // "Map saved as ..."
  display.Key("Return");
  ASSERT_TRUE(WaitFor([this] { return program->waitForFinished(10); }));
  EXPECT_EQ(program->exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(program->exitCode(), 0);
  EXPECT_EQ(Difference(Load("second.bmp"), ExpectedMap()), "");
  EXPECT_FALSE(QFile::exists(folder.filePath("mvtmp.~mp")));
}

}  // namespace
}  // namespace morvane
