#include "palette/CustomTiles.h"

#include <gtest/gtest.h>

#include "document/bmp/Bmp.h"
#include "document/picture/Transform.h"
#include "palette/PalettePages.h"
#include "palette/StampTurn.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

struct CustomTiles : testing::Test, Editor {
  CustomTiles() {
    for (const Size size : {Size{45, 33}, {60, 60}, {61, 10}, {100, 50}, {700, 500}}) {
      files[std::to_string(size.width)] = Speckled(size.width, size.height);
    }
    for (const auto& [name, picture] : files) {
      platform.files["/custom/" + name] = WriteBmp(picture.View());
    }
    Dir1_Change(palette, "/custom");
    TileSetSelector_Click(palette, kCustomSet);
  }
  std::map<std::string, Picture> files;
};

TEST_F(CustomTiles, PreviewsByTheRule) {
  const std::vector<std::pair<Size, Size>> rows = {
      {{60, 60}, {60, 60}},  {{61, 10}, {60, 10}}, {{100, 100}, {60, 60}}, {{100, 50}, {60, 30}},
      {{50, 100}, {30, 60}}, {{1, 61}, {1, 60}},   {{1000, 1}, {60, 1}},   {{45, 33}, {45, 33}},
      {{61, 62}, {59, 60}},  {{80, 30}, {60, 22}}, {{80, 34}, {60, 26}}};
  for (const auto& [picture, preview] : rows) {
    EXPECT_EQ(PreviewSize(picture), preview) << picture.width << "x" << picture.height;
  }
}

TEST_F(CustomTiles, AFileBecomesTheStampAtItsOwnSize) {
  palette.WallMode = true;
  File1_Click(palette, "45");
  EXPECT_EQ(palette.Label2, "45");
  EXPECT_EQ(palette.Label5, "45x33");
  EXPECT_EQ(document.StatusText, "Custom tile selected: 45");
  EXPECT_EQ(palette.CurrentMode(), Mode::Tile);
  EXPECT_TRUE(document.Canvas.TakeFocus());
  EXPECT_EQ(palette.Shape1.Width, 45);
  EXPECT_EQ(palette.Picture1.Width(), 45);
  Canvas_MouseDown(palette, kLeftButton, 100, 100);
  EXPECT_TRUE(Holds(document.Canvas.Image(), 100, 100, {45, 33}, files["45"].View()));
  EXPECT_EQ(platform.snapshots, 2);
}

TEST_F(CustomTiles, AReducedPreviewIsDrawnButNotAssigned) {
  const Picture floor = palette.Picture1Picture;
  File1_Click(palette, "700");
  EXPECT_EQ(palette.Picture1.Width(), 60);
  EXPECT_EQ(palette.Picture1.Height(), 43);
  EXPECT_EQ(palette.Shape1.Width, 700);
  EXPECT_EQ(GetPixel(palette.Picture1.Image(), 0, 0), GetPixel(files["700"].View(), 5, 5));
  Canvas_MouseDown(palette, kLeftButton, 0, 0);
  EXPECT_TRUE(Holds(document.Canvas.Image(), 0, 0, {615, 483}, files["700"].View()));
  TileSetSelector_Click(palette, kGraveDungeon);
  Canvas_MouseDown(palette, kLeftButton, 100, 100);
  EXPECT_TRUE(Holds(document.Canvas.Image(), 100, 100, {60, 43}, palette.Picture1.Image()));
  TileSetSelector_Click(palette, kCustomSet);
  EXPECT_EQ(Picture(palette.Custom.Image()), floor);
  EXPECT_EQ(palette.Label5, "700x500");
}

TEST_F(CustomTiles, ATurnTurnsTheFullPictureAndItsPreview) {
  File1_Click(palette, "700");
  const Picture preview(palette.Picture1.Image());
  Rotate_Click(palette);
  EXPECT_EQ(Picture(palette.Custom.Image()),
            Transformed(files["700"].View(), Transform::RotateRight));
  EXPECT_EQ(palette.Picture1Picture,
            Transformed(Cut(preview.View(), {0, 0, 60, 43}).View(), Transform::RotateRight));
  EXPECT_EQ(palette.Shape1.Width, 500);
  EXPECT_EQ(palette.Label5, "700x500");
  EXPECT_EQ(document.StatusText, "700 tile rotated");
}

TEST_F(CustomTiles, WhatCannotBeReadOnlySaysSo) {
  File1_Click(palette, "45");
  platform.files["/custom/bad.gif"] = {1, 2, 3};
  document.Canvas.TakeFocus();
  for (const auto& [name, reason] :
       std::map<std::string, std::string>{{"bad.gif", "This is not a picture that can be read."},
                                          {"gone.bmp", "There is no such file."}}) {
    File1_Click(palette, name);
    EXPECT_TRUE(document.StatusText.starts_with(name)) << document.StatusText;
    EXPECT_TRUE(document.StatusText.ends_with(reason)) << document.StatusText;
    EXPECT_EQ(palette.Label2, "45");
    EXPECT_EQ(palette.Custom.ScaleWidth(), 45);
    EXPECT_FALSE(document.Canvas.TakeFocus());
  }
}

TEST_F(CustomTiles, ChangesTravelFromDriveToFolderToFiles) {
  const auto names = [this] {
    std::string all;
    for (const FolderList::Row& row : palette.Dir1.Rows()) {
      all.append(static_cast<std::size_t>(row.depth), '>');
      all.append(row.name).append(row.isOnPath ? "* " : " ");
    }
    return all;
  };
  EXPECT_EQ(names(), "/* >custom* >>more ");
  Dir1_Change(palette, "/custom/more");
  EXPECT_EQ(names(), "/* >custom* >>more* ");
  EXPECT_TRUE(palette.File1.Files().empty());
  Dir1_Change(palette, "/gone");
  EXPECT_EQ(palette.File1.Path(), "/custom/more");
  EXPECT_EQ(document.StatusText, "The folder can't be opened: /gone");
  Drive1_Change(palette, "/");
  EXPECT_EQ(names(), "/* >custom >maps >start ");
  EXPECT_EQ(palette.File1.Path(), "/");
  platform.settings["Custom/Dir"] = "/custom";
  ShowStoredFolder(palette);
  EXPECT_EQ(palette.Dir1.Path(), "/custom");
  EXPECT_EQ(palette.File1.Files().size(), files.size());
}

}  // namespace
}  // namespace morvane
