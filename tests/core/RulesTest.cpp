#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <sstream>
#include <tuple>

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

/// A checksum (FNV-1a) of the fields of table rows.
class Checksum {
 public:
  template <typename... Fields>
  void Add(const Fields&... fields) {
    std::ostringstream row;
    ((row << fields << '|'), ...);
    for (const char byte : row.str()) {
      value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
  }
  std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325U;
};

// Users know every name, caption, place and size, so no row may change by accident.
TEST(Catalogue, EveryRowIsAsItWasPublished) {
  Checksum items;
  for (const Item& item : Items()) {
    items.Add(item.control, item.caption, item.set, item.page, item.column, item.row,
              item.stored.width, item.stored.height);
  }
  EXPECT_EQ(items.Value(), 4657574473393665680U);
  Checksum edges;
  for (const EdgePicture& edge : EdgePictures()) {
    edges.Add(edge.control, edge.set, static_cast<int>(edge.edge), static_cast<int>(edge.direction),
              edge.stored.width, edge.stored.height);
  }
  EXPECT_EQ(edges.Value(), 12568249178469911804U);
  EXPECT_EQ(StampSize(*FindItem("ptcrevasse")), (Size{59, 19}));
  EXPECT_EQ(StampSize(*FindItem("pvbuildings-9")), (Size{60, 40}));
}

TEST(Catalogue, PicturesAreCutFromTheSheetOfTheirPage) {
  const TilePictures pictures(&SpeckledSheet);
  const Picture furniture = SpeckledSheet("grave-dungeon/furniture");
  EXPECT_EQ(pictures.Of(*FindItem("pgtorturetable")), Cut(furniture.View(), {40, 100, 80, 120}));
  const Picture edges = SpeckledSheet("classic-village/edges");
  EXPECT_EQ(*pictures.Of(kClassicVillage, Edge::Wall, Direction::Vertical),
            Cut(edges.View(), {0, 0, 4, 24}));
  EXPECT_EQ(*pictures.Of(kClassicVillage, Edge::Door, Direction::Horizontal),
            Cut(edges.View(), {30, 10, 46, 16}));
  EXPECT_EQ(pictures.Of(kClassicVillage, Edge::SecretDoor, Direction::Vertical), nullptr);
  EXPECT_EQ(pictures.Of(kCustomSet, Edge::Wall, Direction::Vertical), nullptr);
}

TEST(Start, HasTheFloorTileAWhiteMapAndItsSnapshot) {
  for (const auto& [stored, shown] : std::map<std::string, std::string>{
           {"/custom", "/custom"}, {"/gone", "/start"}, {"", "/start"}}) {
    FakePlatform platform;
    platform.settings = {{"Color/Canvas", "255"}, {"Map/Grid", "1"}, {"Custom/Dir", stored}};
    MainForm form(platform, &SpeckledSheet);
    form.Form_Initialize();
    EXPECT_EQ(platform.snapshots, 1);
    EXPECT_EQ(platform.snapshot, WriteBmp(Picture(613, 480, kWhite).View()));
    EXPECT_EQ(form.palette.Label2, "Floor");
    EXPECT_EQ(form.palette.Picture1Picture, form.palette.pictures.Of(*FindItem("pbfloor")));
    EXPECT_EQ(form.document.Caption, "Morvane");
    EXPECT_EQ(form.document.pbclear.Width(), form.document.Canvas.Width());
    EXPECT_EQ(form.palette.File1.Path(), shown);
    EXPECT_EQ(platform.foldersRead, 0) << "a folder is read when its list shows";
  }
  FakePlatform platform;
  platform.currentDirectory.clear();  // the start folder was deleted
  MainForm form(platform, &SpeckledSheet);
  form.Form_Initialize();
  TileSetSelector_Click(form.palette, kCustomSet);
  EXPECT_TRUE(form.palette.File1.Files().empty());
  EXPECT_NE(form.document.settings.Write("Map", "Grid", "1"), "");
}

struct Rules : testing::Test, Editor {
  Options options{document};
};

TEST_F(Rules, ANewMapIsConfirmedAndHasNoFile) {
  document.CurrentFile = "/maps/a.bmp";
  document.HasCurrentFile = true;
  document.Caption = "Morvane - a.bmp";
  for (const Answer answer : {Answer::No, Answer::Cancel}) {
    platform.answers = {answer};
    mnuFileNew_Click(document);
    EXPECT_EQ(Difference(Map(), Picture(615, 483, kWhite)), "");
    EXPECT_TRUE(document.HasCurrentFile);
  }
  EXPECT_EQ(platform.boxes.back(), (SeenBox{"Are you sure?", BoxStyle::YesNoQuestion, "New map"}));
  document.Canvas.TakeExposed();
  platform.answers = {Answer::Yes};
  mnuFileNew_Click(document);
  EXPECT_EQ(Difference(Map(), Picture(615, 483, 0)), "") << "black without settings";
  EXPECT_EQ(document.Canvas.TakeExposed().Intersected({0, 0, 615, 483}), (Rect{0, 0, 615, 483}));
  EXPECT_FALSE(document.HasCurrentFile);
  EXPECT_EQ(document.CurrentFile, "/maps/a.bmp");
  EXPECT_EQ(document.Caption, "Morvane");
  EXPECT_EQ(platform.snapshots, 1);
}

TEST_F(Rules, OptionsReadAndWriteFiveKeys) {
  options.Form_Load();
  EXPECT_EQ(options.ColorBox, 0xFFFFFFU);
  EXPECT_EQ(options.GridColorBox, 0xC0C0C0U);
  EXPECT_EQ(options.GridCheck, 0);
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
  const std::map<std::string, std::string> expected = {{"Map/Dir", "/maps"},
                                                       {"Custom/Dir", "/custom"},
                                                       {"Color/Canvas", "1193046"},
                                                       {"Color/Grid", "1193046"},
                                                       {"Map/Grid", "0"}};
  EXPECT_EQ(platform.settings, expected);
  EXPECT_EQ(platform.titles[0], "Select the directory where Morvane maps will be saved.");
  EXPECT_EQ(platform.titles[2],
            "Select the directory with your collection of Morvane custom tiles.");
  platform.unwritable = {"/start/Morvane.ini"};
  EXPECT_FALSE(options.cmdOK_Click());
  EXPECT_NE(platform.boxes.back().text.find("/start/Morvane.ini"), std::string::npos);
  platform.settings = {{"Color/Canvas", "0"}, {"Color/Grid", "255"}, {"Map/Grid", "1"}};
  options.Form_Load();
  EXPECT_EQ(options.ColorBox, 0U) << "the defaults replace only two blacks";
  EXPECT_EQ(options.GridColorBox, 255U);
  EXPECT_EQ(options.GridCheck, 1);
}

TEST_F(Rules, PrintingTakesTheWholeImageAndReportsAFailure) {
  form.Form_Resize(400, 300);
  mnuFilePrint_Click(document);
  ASSERT_EQ(platform.printed.size(), 1U);
  EXPECT_EQ(platform.printed[0].Width(), 615);
  EXPECT_TRUE(platform.boxes.empty());
  platform.printFailure = "There is no printer.";
  mnuFilePrint_Click(document);
  EXPECT_EQ(platform.boxes.back().text, "The map could not be printed.\n\nThere is no printer.");
  mnuFilePageSetup_Click(document);
  EXPECT_EQ(platform.titles.back(), "Print Setup");
}

TEST_F(Rules, KeysOfTheMap) {
  document.Canvas.MousePointer = Pointer::IBeam;
  EXPECT_TRUE(Canvas_KeyDown(palette, kKeyEscape, 0));
  EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
  EXPECT_FALSE(Canvas_KeyDown(palette, kKeyM, kShift | kAlt));
  EXPECT_EQ(palette.CurrentMode(), Mode::Tile);
  EXPECT_TRUE(Canvas_KeyDown(palette, kKeyM, kCtrl | kShift));
  EXPECT_EQ(palette.CurrentMode(), Mode::Wall);
  EXPECT_FALSE(Canvas_KeyDown(palette, 65, 0));
}

TEST_F(Rules, ACanceledTextLeavesTheMapAndTheOlderText) {
  document.TextToInsert = "older";
  mnuToolsInsertText_Click(document);
  EXPECT_TRUE(document.Canvas.TakeFocus());
  palette.Shape1.Visible = true;
  Canvas_MouseMove(palette, kLeftButton, 41, 50);
  EXPECT_TRUE(palette.Shape1.Visible) << "nothing is painted before the press";
  Canvas_MouseDown(palette, kRightButton, 0, 0);
  EXPECT_EQ(platform.snapshots, 1);
  EXPECT_EQ(document.TextToInsert, "older");
  EXPECT_TRUE(document.mnuEditUndoEnabled);
  EXPECT_EQ(Difference(Map(), Picture(615, 483, kWhite)), "");
}

TEST_F(Rules, FoldersOfCustomTiles) {
  platform.files["/custom/tile.bmp"] = {};
  const auto names = [this] {
    std::string all;
    for (const FolderList::Row& row : palette.Dir1.Rows()) {
      all.append(static_cast<std::size_t>(row.depth), '>');
      all.append(row.name).append(row.isOnPath ? "* " : " ");
    }
    return all;
  };
  Dir1_Change(palette, "/custom/more");
  EXPECT_EQ(names(), "/* >custom* >>more* ");
  EXPECT_TRUE(palette.File1.Files().empty());
  Dir1_Change(palette, "/gone");
  EXPECT_EQ(palette.File1.Path(), "/custom/more");
  EXPECT_EQ(document.StatusText, "The folder can't be opened: /gone");
  Drive1_Change(palette, "/");
  EXPECT_EQ(names(), "/* >custom >maps >start ");
  platform.settings["Custom/Dir"] = "/custom";
  ShowStoredFolder(palette);
  EXPECT_EQ(palette.File1.Files(), std::vector<std::string>{"tile.bmp"});
}

TEST_F(Rules, SizesOfPreviews) {
  const std::vector<std::pair<Size, Size>> rows = {
      {{60, 60}, {60, 60}},  {{61, 10}, {60, 10}}, {{100, 100}, {60, 60}}, {{100, 50}, {60, 30}},
      {{50, 100}, {30, 60}}, {{1, 61}, {1, 60}},   {{1000, 1}, {60, 1}},   {{45, 33}, {45, 33}},
      {{61, 62}, {59, 60}},  {{80, 30}, {60, 22}}, {{80, 34}, {60, 26}}};
  for (const auto& [picture, preview] : rows) {
    EXPECT_EQ(PreviewSize(picture), preview) << picture.width << "x" << picture.height;
  }
}

TEST(Settings, ValuesAreNumbersAndFoldersEndWithOneSeparator) {
  const std::map<std::string, double> table = {{"", 0},
                                               {"x", 0},
                                               {"12632256", 12632256},
                                               {" 1 2 3 x", 123},
                                               {"-7.5z", -7.5},
                                               {"+4", 4},
                                               {"1e3", 1000},
                                               {".5", 0.5},
                                               {"inf", 0},
                                               {"nan", 0},
                                               {"-", 0},
                                               {"--1", 0},
                                               {"+-1", 0},
                                               {"\t16777215", 16777215},
                                               {"yes 1", 0}};
  for (const auto& [text, value] : table) EXPECT_EQ(NumericValue(text), value) << text;
  EXPECT_EQ(LongValue("2.5"), 2);
  EXPECT_EQ(LongValue("3.5"), 4);
  EXPECT_EQ(LongValue("99999999999"), 0);
  EXPECT_EQ(ColorValue("-1"), 0xFFFFFFU);
  EXPECT_EQ(ColorValue("16777216"), 0U);
  for (const char* folder : {"/a", "/a/"}) EXPECT_EQ(WithTrailingBackslash(folder), "/a/");
  EXPECT_EQ(WithTrailingBackslash(""), "/");
}

}  // namespace
}  // namespace morvane
