#include <set>

#include "document/MapFiles.h"
#include "document/Undo.h"
#include "palette/CustomTiles.h"
#include "platform/Folders.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

using Rules = FormFixture;

TEST_F(Rules, AStartTakesASnapshotAndShowsTheStoredFolder) {
  EXPECT_EQ(palette.Dir1.ReadCount() + palette.File1.ReadCount(), 0) << "read when they are shown";
  EXPECT_EQ(ReadFile("mvtmp.~mp"), WriteBmp(Picture(613, 480, kWhite).View()));
  const std::string start = QDir::currentPath().toStdString();
  const auto shownFolder = [&](const std::string& stored) {
    EXPECT_EQ(document.settings.Write("Custom", "Dir", stored), "");
    MainForm next(platform, &LoadArtSheet);
    next.Form_Initialize();
    return next.palette.File1.Path();
  };
  EXPECT_EQ(shownFolder("/usr"), "/usr");
  EXPECT_EQ(shownFolder("/gone"), start);
  std::filesystem::remove_all(start);
  MainForm homeless(platform, &LoadArtSheet);
  homeless.Form_Initialize();
  EXPECT_EQ(homeless.palette.File1.Path(), "");
  EXPECT_NE(homeless.document.settings.Write("Map", "Grid", "1"), "");
}

TEST_F(Rules, FoldersOfCustomTiles) {
  const std::vector<std::string> volumes = MountedVolumes();
  EXPECT_EQ(std::set(volumes.begin(), volumes.end()).size(), volumes.size());
  EXPECT_EQ(std::count(volumes.begin(), volumes.end(), "/proc"), 0);
  std::filesystem::create_directories("custom/more");
  for (const char* name : {"root.bmp", "custom/tile.bmp"}) WriteFile(name, WriteBmp(Map().View()));
  const std::string start = folder.File("");
  const auto names = [&] {  // below the start folder, with slashes on the current path
    std::string found;
    for (const FolderList::Row& row : palette.Dir1.Rows()) {
      EXPECT_EQ(row.depth, row.path == "/" ? 0 : std::count(row.path.begin(), row.path.end(), '/'));
      if (row.path.size() > start.size()) found += row.name + (row.isOnPath ? "/ " : " ");
    }
    return found;
  };
  Dir1_Change(palette, start + "custom/more");
  EXPECT_EQ(names(), "custom/ more/ ");
  EXPECT_TRUE(palette.File1.Files().empty());
  Dir1_Change(palette, "/gone");
  EXPECT_EQ(palette.File1.Path(), start + "custom/more");
  EXPECT_EQ(document.StatusText, "The folder can't be opened: /gone");
  File1_Drop(palette, start + "root.bmp");
  EXPECT_EQ(names(), "custom ");
  ShowStoredFolder(palette);  // none is stored
  EXPECT_EQ(document.StatusText, "Custom tile selected: root.bmp");
  EXPECT_EQ(document.settings.Write("Custom", "Dir", start + "custom"), "");
  WhenOpen([](QDialog& options) { options.reject(); });
  Choose("mnuToolsOptions");
  EXPECT_EQ(names(), "custom/ more ");
  EXPECT_EQ(palette.File1.Files(), std::vector<std::string>{"tile.bmp"});
  Dir1_Change(palette, "/");
  EXPECT_EQ(names(), "");
}

TEST(Numbers, InSettings) {
  const std::vector<std::pair<std::string, double>> rows = {
      {"", 0},      {"inf", 0},         {"nan", 0},      {"-", 0},       {"--1", 0},  {"+-1", 0},
      {"yes 1", 0}, {" 1 2\t3 x", 123}, {"-7.5z", -7.5}, {"+1e3", 1000}, {".5", 0.5}, {"1e999", 0}};
  for (const auto& [text, value] : rows) EXPECT_EQ(NumericValue(text), value) << text;
  EXPECT_EQ(LongValue("2.5"), 2);
  EXPECT_EQ(LongValue("3.5"), 4);
  EXPECT_EQ(LongValue("99999999999"), 0);
  EXPECT_EQ(ColorValue("-1"), 0xFFFFFFU);
  EXPECT_EQ(ColorValue("16777216"), 0U);
}

TEST_F(Rules, ADamagedFileIsUsedWithAWarning) {
  WriteFile("bad.bmp", BmpMaker{.bits = 8, .data = {0, 0, 0, 0}}.Make());  // without a palette
  OpenMap(document, folder.File("bad.bmp"));
  EXPECT_EQ(document.StatusText, "bad.bmp is damaged. Parts of the map may be wrong.");
  File1_Drop(palette, folder.File("bad.bmp"));
  EXPECT_EQ(document.StatusText,
            "Custom tile selected: bad.bmp. The file is damaged, and parts of the picture may be "
            "wrong.");
}

TEST_F(Rules, ExitWithoutASaveLeavesARescueCopy) {
  Press(5, 5);
  platform.rescueFolders = {folder.File("")};
  platform.answers = {Answer::Yes};  // but no file is chosen
  EXPECT_FALSE(form.Form_Unload());
  EXPECT_TRUE(platform.boxes.back().text.starts_with(
      "The map was not saved.\n\nA rescue copy was saved as\n\n" +
      folder.File("Morvane rescue 20")));
  form.RescueAtTermination();
  EXPECT_EQ(RescueCopiesIn(".").size(), 1) << "one copy is enough";
  EXPECT_TRUE(platform.RescueNotes().empty()) << "it was reported";

  platform.rescueFolders = {"/gone"};
  platform.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
  platform.chosenFiles = {"/gone/a.bmp", "/gone/again.bmp", folder.File("chosen.bmp")};
  platform.boxes.clear();
  EXPECT_FALSE(form.Form_Unload());
  EXPECT_EQ(platform.boxes.size(), 3U);
  EXPECT_EQ(MapIn("chosen.bmp"), Map());
}

TEST_F(Rules, UndoShowsTheHourglassWhileItReads) {
  Press(5, 5);
  Choose("mnuToolsInsertText");
  std::vector<Qt::CursorShape> shapes;
  const auto note = [&] {
    window.ShowState();
    shapes.insert(shapes.end(), {window.cursor().shape(), Find("Canvas")->cursor().shape()});
  };
  platform.SetWindow(&window, note);
  Choose("mnuEditUndo");
  note();
  EXPECT_EQ(shapes,
            (std::vector{Qt::WaitCursor, Qt::WaitCursor, Qt::ArrowCursor, Qt::IBeamCursor}));
}

TEST_F(Rules, AFailedUndoIsReportedAndLeavesTheMap) {
  Press(5, 5);
  const Picture one = Map();
  Press(45, 465);  // the lowest rows, which are the first in the snapshot
  Picture both = Map();
  const Bytes whole = ReadFile("mvtmp.~mp");
  const auto expectFailure = [&](const std::string& reason) {
    mnuEditUndo_Click(document);
    EXPECT_EQ(OneBox(), "The last change can't be taken back.\n\n" + reason);
    EXPECT_EQ(Difference(Map().View(), both.View()), "");
    EXPECT_FALSE(document.mnuEditUndoEnabled || document.UndoButtonEnabled);
    EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
  };
  platform.memoryRunsOut = true;
  expectFailure("There is not enough memory for this picture.");
  platform.memoryRunsOut = false;
  // Another program replaced the snapshot with run lengths that end in the first row.
  BmpMaker maker{.width = both.Width(), .height = both.Height(), .bits = 8, .compression = 1};
  maker.data = Bytes(whole.size() - 54, 1);
  WriteFile("mvtmp.~mp", maker.Make());
  expectFailure("The file ends too early.");
  WriteFile("mvtmp.~mp", whole);
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map().View(), one.View()), "");
  platform.DeleteSnapshot();
  both = one;
  expectFailure("No earlier state of the map was kept.");
}

TEST_F(Rules, OutOfMemoryIsReportedAndExitEnds) {
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

}  // namespace
}  // namespace morvane
