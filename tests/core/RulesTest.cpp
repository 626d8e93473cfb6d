#include <gtest/gtest.h>

#include "document/NewMap.h"
#include "document/Options.h"
#include "document/Printing.h"
#include "palette/CustomTiles.h"
#include "palette/PalettePages.h"
#include "palette/TileSelection.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasKeyboard.h"
#include "tools/CanvasMouse.h"
#include "tools/TextInsertion.h"

namespace morvane {
namespace {

TEST(Catalogue, PicturesAreCutFromTheSheetOfTheirPage) {
  const TilePictures pictures(&SpeckledSheet);
  const Picture furniture = SpeckledSheet("grave-dungeon/furniture");
  EXPECT_EQ(pictures.Of(*FindItem("pgtorturetable")), Cut(furniture.View(), {40, 100, 80, 120}));
  const Picture edges = SpeckledSheet("classic-village/edges");
  EXPECT_EQ(*pictures.Of(kClassicVillage, Edge::Door, Direction::Horizontal),
            Cut(edges.View(), {30, 10, 46, 16}));
  EXPECT_EQ(pictures.Of(kClassicVillage, Edge::SecretDoor, Direction::Vertical), nullptr);
}

TEST(Start, TakesASnapshotAndReadsNoFolder) {
  for (const auto& [current, stored, shown] : {std::tuple("/start", "/custom", "/custom"),
                                               {"/start", "/gone", "/start"},
                                               {"/start", "", "/start"},
                                               {"", "", ""}}) {
    FakePlatform platform;
    platform.currentDirectory = current;  // empty if the folder was deleted
    platform.settings = {{"Color/Canvas", "255"}, {"Map/Grid", "1"}, {"Custom/Dir", stored}};
    MainForm form(platform, &SpeckledSheet);
    form.Form_Initialize();
    EXPECT_EQ(platform.snapshots, 1);
    EXPECT_EQ(platform.snapshot, WriteBmp(Picture(613, 480, kWhite).View()));
    EXPECT_EQ(form.palette.Label2, "Floor");
    EXPECT_EQ(form.document.Caption, "Morvane");
    EXPECT_EQ(form.palette.File1.Path(), shown);
    EXPECT_EQ(platform.foldersRead, 0) << "a folder is read when its list shows";
    EXPECT_TRUE(form.palette.File1.Files().empty());
    EXPECT_EQ(form.document.settings.Write("Map", "Grid", "1").empty(), current[0] != 0);
  }
}

struct Rules : testing::Test, Editor {};

TEST_F(Rules, ANewMapIsConfirmedAndHasNoFile) {
  document.HasCurrentFile = true;
  document.CurrentFile = document.Caption = "a.bmp";
  platform.answers = {Answer::No, Answer::Cancel, Answer::Yes};
  for (int i = 0; i < 2; ++i) mnuFileNew_Click(document);
  EXPECT_EQ(platform.boxes.back(), (SeenBox{"Are you sure?", BoxStyle::YesNoQuestion, "New map"}));
  EXPECT_EQ(Difference(Map(), Picture(615, 483, kWhite)), "");
  EXPECT_TRUE(document.HasCurrentFile);
  mnuFileNew_Click(document);
  EXPECT_EQ(Difference(Map(), Picture(615, 483, 0)), "") << "black without settings";
  EXPECT_FALSE(document.HasCurrentFile);
  EXPECT_EQ(document.CurrentFile, "a.bmp");
  EXPECT_EQ(document.Caption, "Morvane");
  EXPECT_EQ(platform.snapshots, 1);
}

TEST_F(Rules, OptionsReadAndWriteFiveKeys) {
  Options options{document};
  const auto fields = [&] {
    return std::tuple(options.ColorBox, options.GridColorBox, options.GridCheck);
  };
  options.Form_Load();
  EXPECT_EQ(fields(), std::tuple(0xFFFFFFU, 0xC0C0C0U, 0));
  options.PaletteButton_Click();  // canceled: the dialog's colour is black at first
  EXPECT_EQ(options.ColorBox, 0U);
  platform.colors = {0x123456};
  options.PaletteButton_Click();
  options.GridPaletteButton_Click();  // canceled: the colour that was picked before
  platform.chosenFiles = {"/maps", "", "/custom"};
  options.ButtonMapDir_Click();
  options.ButtonMapDir_Click();  // canceled
  options.ButtonCustomDir_Click();
  options.GridCheck = 2;
  EXPECT_TRUE(platform.settings.empty());
  EXPECT_TRUE(options.cmdOK_Click());
  std::string settings;
  for (const auto& [key, value] : platform.settings) {
    settings.append(key).append("=").append(value).append(" ");
  }
  EXPECT_EQ(settings,
            "Color/Canvas=1193046 Color/Grid=1193046 Custom/Dir=/custom Map/Dir=/maps Map/Grid=0 ");
  EXPECT_EQ(platform.titles[0], "Select the directory where Morvane maps will be saved.");
  EXPECT_EQ(platform.titles[2],
            "Select the directory with your collection of Morvane custom tiles.");
  EXPECT_EQ(document.settings.Write("Map", "Dir", std::string(2047, 'x')), "");
  EXPECT_NE(document.settings.Write("Map", "Dir", std::string(2048, 'x')), "") << "it is cut";
  platform.unwritable = {"/start/Morvane.ini"};
  EXPECT_FALSE(options.cmdOK_Click());
  EXPECT_NE(platform.boxes.back().text.find("/start/Morvane.ini"), std::string::npos);
  platform.settings = {{"Color/Canvas", "0"}, {"Color/Grid", "255"}, {"Map/Grid", "1"}};
  options.Form_Load();
  EXPECT_EQ(fields(), std::tuple(0U, 255U, 1)) << "the defaults replace only two blacks";
}

TEST_F(Rules, PrintingTakesTheWholeImageAndReportsAFailure) {
  form.Form_Resize(400, 300);
  mnuFilePrint_Click(document);
  EXPECT_EQ(platform.printed.at(0).Width(), 615);
  platform.printFailure = "There is no printer.";
  mnuFilePrint_Click(document);
  ASSERT_EQ(platform.boxes.size(), 1U);
  EXPECT_EQ(platform.boxes[0].text, "The map could not be printed.\n\nThere is no printer.");
}

TEST_F(Rules, ACanceledTextLeavesTheMapAndTheOlderText) {
  document.TextToInsert = "older";
  mnuToolsInsertText_Click(document);
  Canvas_MouseMove(palette, kLeftButton, 41, 50);  // nothing is painted before the press
  Canvas_MouseDown(palette, kRightButton, 0, 0);
  EXPECT_EQ(platform.snapshots, 1);
  EXPECT_EQ(Difference(Map(), Picture(615, 483, kWhite)), "");
  EXPECT_EQ(document.TextToInsert, "older");
  EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
}

TEST_F(Rules, KeysOfTheMap) {
  mnuToolsInsertText_Click(document);
  EXPECT_TRUE(Canvas_KeyDown(palette, kKeyEscape, 0));
  EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
  EXPECT_FALSE(Canvas_KeyDown(palette, kKeyM, kShift | kAlt));
  EXPECT_TRUE(Canvas_KeyDown(palette, kKeyM, kCtrl | kShift));
  EXPECT_EQ(palette.CurrentMode(), Mode::Wall);
}

TEST_F(Rules, FoldersOfCustomTiles) {
  platform.files["/custom/tile.bmp"] = platform.files["/root.bmp"] = WriteBmp(Map().View());
  const auto names = [this] {
    std::string all;
    for (const FolderList::Row& row : palette.Dir1.Rows()) {
      all += std::string(static_cast<std::size_t>(row.depth), '>') + row.name +
             (row.isOnPath ? "* " : " ");
    }
    return all;
  };
  Dir1_Change(palette, "/custom/more");
  EXPECT_EQ(names(), "/* >custom* >>more* ");
  EXPECT_TRUE(palette.File1.Files().empty());
  Dir1_Change(palette, "/gone");
  EXPECT_EQ(palette.File1.Path(), "/custom/more");
  EXPECT_EQ(document.StatusText, "The folder can't be opened: /gone");
  File1_Drop(palette, "/root.bmp");
  EXPECT_EQ(names(), "/* >custom >maps >start ");
  ShowStoredFolder(palette);  // none is stored
  EXPECT_EQ(document.StatusText, "Custom tile selected: root.bmp");
  platform.settings["Custom/Dir"] = "/custom";
  ShowStoredFolder(palette);
  EXPECT_EQ(palette.File1.Files(), std::vector<std::string>{"tile.bmp"});
}

TEST(Numbers, SizesOfPreviews) {
  const std::vector<std::pair<Size, Size>> rows = {
      {{60, 60}, {60, 60}},  {{61, 10}, {60, 10}}, {{100, 100}, {60, 60}}, {{100, 50}, {60, 30}},
      {{50, 100}, {30, 60}}, {{1, 61}, {1, 60}},   {{1000, 1}, {60, 1}},   {{61, 62}, {59, 60}},
      {{80, 30}, {60, 22}},  {{80, 34}, {60, 26}}};
  for (const auto& [picture, preview] : rows) {
    EXPECT_EQ(PreviewSize(picture), preview) << picture.width << "x" << picture.height;
  }
}

TEST(Numbers, InSettings) {
  for (const char* text : {"", "-", "inf", "nan", "--1", "+-1", "yes 1"}) {
    EXPECT_EQ(NumericValue(text), 0) << text;
  }
  EXPECT_EQ(NumericValue(" 1 2\t3 x"), 123);
  EXPECT_EQ(NumericValue("-7.5z"), -7.5);
  EXPECT_EQ(NumericValue("+1e3"), 1000);
  EXPECT_EQ(NumericValue(".5"), 0.5);
  EXPECT_EQ(LongValue("2.5"), 2);
  EXPECT_EQ(LongValue("3.5"), 4);
  EXPECT_EQ(LongValue("99999999999"), 0);
  EXPECT_EQ(ColorValue("-1"), 0xFFFFFFU);
  EXPECT_EQ(ColorValue("16777216"), 0U);
}

}  // namespace
}  // namespace morvane
