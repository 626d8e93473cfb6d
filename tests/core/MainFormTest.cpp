#include "editor/MainForm.h"

#include <gtest/gtest.h>

#include "document/bmp/Bmp.h"
#include "palette/PalettePages.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

TEST(MainForm, StartsWithTheFloorTileOnAWhiteMapAndItsSnapshot) {
  FakePlatform platform;
  platform.settings = {{"Color/Canvas", "255"}, {"Map/Grid", "1"}};
  MainForm form(platform, &SpeckledSheet);
  form.Form_Initialize();
  EXPECT_EQ(platform.snapshots, 1);
  EXPECT_EQ(platform.snapshot, WriteBmp(Picture(613, 480, kWhite).View()));
  EXPECT_EQ(form.document.settings.StartDir, "/start");
  EXPECT_EQ(form.palette.Label2, "Floor");
  EXPECT_EQ(form.palette.Picture1.Width(), 20);
  EXPECT_EQ(form.palette.Picture1Picture, form.palette.pictures.Of(*FindItem("pbfloor")));
  EXPECT_EQ(form.palette.TileSetSelector.ListIndex, 0);
  EXPECT_EQ(form.palette.CurrentMode(), Mode::Tile);
  EXPECT_EQ(form.document.Caption, "Morvane");
  EXPECT_EQ(form.document.pbclear.Width(), form.document.Canvas.Width());
  EXPECT_EQ(form.document.pbclear.Height(), form.document.Canvas.Height());
}

TEST(MainForm, TheStoredCustomFolderIsFoundOnlyIfItExists) {
  for (const auto& [stored, shown] : std::map<std::string, std::string>{
           {"/custom", "/custom"}, {"/gone", "/start"}, {"", "/start"}}) {
    FakePlatform platform;
    platform.settings["Custom/Dir"] = stored;
    MainForm form(platform, &SpeckledSheet);
    form.Form_Initialize();
    EXPECT_EQ(form.palette.File1.Path(), shown);
  }
}

TEST(MainForm, FoldersAreReadWhenTheirListsAreLookedAt) {
  FakePlatform platform;
  platform.files["/start/one.bmp"] = {};
  MainForm form(platform, &SpeckledSheet);
  form.Form_Initialize();
  EXPECT_EQ(platform.foldersRead, 0);
  TileSetSelector_Click(form.palette, kCustomSet);
  for (int looks = 0; looks < 2; ++looks) {
    EXPECT_EQ(form.palette.File1.Files(), std::vector<std::string>{"one.bmp"});
    EXPECT_EQ(form.palette.Dir1.Rows().back().name, "start");
  }
  EXPECT_EQ(platform.foldersRead, 2);
}

TEST(MainForm, AStartFolderThatIsGoneHarmsNothing) {
  FakePlatform platform;
  platform.currentDirectory.clear();
  MainForm form(platform, &SpeckledSheet);
  form.Form_Initialize();
  TileSetSelector_Click(form.palette, kCustomSet);
  EXPECT_TRUE(form.palette.File1.Files().empty());
  EXPECT_TRUE(form.palette.Dir1.Rows().empty());
  EXPECT_NE(form.document.settings.Write("Map", "Grid", "1"), "");
  EXPECT_TRUE(platform.settings.empty());
}

TEST(MainForm, TheCanvasFillsTheWindow) {
  Editor editor;
  const PictureBox& canvas = editor.document.Canvas;
  EXPECT_EQ(canvas.Width(), 619);
  EXPECT_EQ(canvas.Height(), 487);
  EXPECT_EQ(canvas.ScaleWidth(), 615);
  EXPECT_EQ(canvas.ScaleHeight(), 483);
  editor.form.Form_Resize(100, 600);  // narrower than the left column: that side is refused
  EXPECT_EQ(canvas.Width(), 619);
  EXPECT_EQ(canvas.Height(), 550);
  EXPECT_EQ(editor.document.pbclear.Width(), 619);
}

}  // namespace
}  // namespace morvane
