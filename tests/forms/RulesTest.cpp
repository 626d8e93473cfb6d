#include <map>

#include "document/Settings.h"
#include "palette/CustomTiles.h"
#include "tests/support/FormFixture.h"
#include "tools/Buttons.h"
#include "tools/CanvasKeyboard.h"

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
  EXPECT_EQ(shownFolder(""), start);
  std::filesystem::remove_all(start);
  MainForm homeless(platform, &LoadArtSheet);
  homeless.Form_Initialize();
  EXPECT_EQ(homeless.palette.File1.Path(), "");
  EXPECT_NE(homeless.document.settings.Write("Map", "Grid", "1"), "");
}

TEST_F(Rules, FoldersOfCustomTiles) {
  std::filesystem::create_directories("custom/more");
  for (const char* name : {"root.bmp", "custom/tile.bmp"}) WriteFile(name, WriteBmp(Map().View()));
  const std::string start = folder.File("");
  using Names = std::vector<std::pair<std::string, bool>>;
  const auto names = [&] {  // below the start folder, and whether they are on the current path
    Names found;
    for (const FolderList::Row& row : palette.Dir1.Rows()) {
      EXPECT_EQ(row.depth, row.path == "/" ? 0 : std::count(row.path.begin(), row.path.end(), '/'));
      if (row.path.size() > start.size()) found.emplace_back(row.name, row.isOnPath);
    }
    return found;
  };
  Dir1_Change(palette, start + "custom/more");
  EXPECT_EQ(names(), (Names{{"custom", true}, {"more", true}}));
  EXPECT_TRUE(palette.File1.Files().empty());
  Dir1_Change(palette, "/gone");
  EXPECT_EQ(palette.File1.Path(), start + "custom/more");
  EXPECT_EQ(document.StatusText, "The folder can't be opened: /gone");
  File1_Drop(palette, start + "root.bmp");
  EXPECT_EQ(names(), (Names{{"custom", false}}));
  ShowStoredFolder(palette);  // none is stored
  EXPECT_EQ(document.StatusText, "Custom tile selected: root.bmp");
  EXPECT_EQ(document.settings.Write("Custom", "Dir", start + "custom"), "");
  ShowStoredFolder(palette);
  EXPECT_EQ(palette.File1.Files(), std::vector<std::string>{"tile.bmp"});
  EXPECT_FALSE(Canvas_KeyDown(palette, kKeyM, kShift | kAlt));
}

TEST(Numbers, InSettings) {
  const std::map<std::string, double> rows = {
      {"", 0},      {"-", 0},           {"inf", 0},      {"nan", 0},     {"--1", 0}, {"+-1", 0},
      {"yes 1", 0}, {" 1 2\t3 x", 123}, {"-7.5z", -7.5}, {"+1e3", 1000}, {".5", 0.5}};
  for (const auto& [text, value] : rows) EXPECT_EQ(NumericValue(text), value) << text;
  EXPECT_EQ(LongValue("2.5"), 2);
  EXPECT_EQ(LongValue("3.5"), 4);
  EXPECT_EQ(LongValue("99999999999"), 0);
  EXPECT_EQ(ColorValue("-1"), 0xFFFFFFU);
  EXPECT_EQ(ColorValue("16777216"), 0U);
}

}  // namespace
}  // namespace morvane
