#include <gtest/gtest.h>

#include "palette/PalettePages.h"
#include "palette/TileSelection.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

struct PaletteTest : testing::Test, Editor {};

TEST_F(PaletteTest, EveryItemBecomesTheStamp) {
  for (const Item& item : Items()) {
    palette.WallMode = true;
    palette.Label5 = "64x48";
    palette.Shape1.Visible = true;
    const int snapshots = platform.snapshots;
    Item_Click(palette, item);
    const Size stamp = StampSize(item);
    ASSERT_EQ(palette.Label2, item.caption);
    ASSERT_EQ(palette.Picture1.Width(), stamp.width);
    ASSERT_EQ(palette.Picture1.Height(), stamp.height);
    ASSERT_EQ(palette.Picture1Picture, palette.pictures.Of(item));
    ASSERT_EQ(palette.Shape1.Width, stamp.width);
    ASSERT_EQ(palette.Shape1.Height, stamp.height);
    ASSERT_TRUE(palette.Shape1.Visible);
    ASSERT_EQ(palette.CurrentMode(), Mode::Tile);
    ASSERT_EQ(palette.Label5, "");
    ASSERT_EQ(document.StatusText, std::string(item.caption) + " tile selected");
    ASSERT_TRUE(document.Canvas.TakeFocus());
    ASSERT_EQ(platform.snapshots, snapshots);
  }
}

TEST_F(PaletteTest, EnteringCustomTakesTheStoredPictureAndReadsTheFolder) {
  Item_Click(palette, *FindItem("ptpool"));
  platform.files["/start/later.bmp"] = {};
  TileSetSelector_Click(palette, kCustomSet);
  EXPECT_EQ(palette.Custom.ScaleWidth(), 40);
  EXPECT_EQ(palette.Custom.ScaleHeight(), 40);
  EXPECT_EQ(palette.Shape1.Width, 39);
  EXPECT_EQ(palette.File1.Files(), std::vector<std::string>{"later.bmp"});
  platform.files.clear();
  Item_Click(palette, *FindItem("pgbed"));
  TileSetSelector_Click(palette, kCustomSet);  // the entry already chosen
  EXPECT_EQ(Picture(palette.Custom.Image()), palette.pictures.Of(*FindItem("pgbed")));
  EXPECT_TRUE(palette.File1.Files().empty());
}

}  // namespace
}  // namespace morvane
