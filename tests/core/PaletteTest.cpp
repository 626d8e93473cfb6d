#include <gtest/gtest.h>

#include "palette/PalettePages.h"
#include "palette/TileSelection.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

struct PaletteTest : testing::Test, Editor {
  /// The one page that shows, as "set/page"; fails where another shows too.
  std::string VisiblePage() const {
    std::string visible;
    for (int set = 0; set < kBuiltInSets; ++set) {
      for (int page = 1; page <= kMostPages; ++page) {
        if (!IsPageVisible(palette, set, page)) continue;
        EXPECT_EQ(visible, "");
        visible = std::to_string(set) + "/" + std::to_string(page);
      }
    }
    return visible;
  }
};

TEST_F(PaletteTest, EachSetRemembersItsPage) {
  EXPECT_EQ(VisiblePage(), "0/1");
  TabStrip_Click(palette, kAbandonedCathedral, 2);
  EXPECT_EQ(VisiblePage(), "0/2");
  TileSetSelector_Click(palette, kGraveDungeon);
  EXPECT_EQ(VisiblePage(), "1/1");
  TabStrip_Click(palette, kGraveDungeon, 3);
  TileSetSelector_Click(palette, kTsrOriginal);
  EXPECT_EQ(VisiblePage(), "2/1");
  TileSetSelector_Click(palette, kClassicVillage);
  EXPECT_EQ(VisiblePage(), "3/1");
  TileSetSelector_Click(palette, kCustomSet);
  EXPECT_EQ(VisiblePage(), "");
  TileSetSelector_Click(palette, kAbandonedCathedral);
  EXPECT_EQ(VisiblePage(), "0/2");
  TileSetSelector_Click(palette, kGraveDungeon);
  EXPECT_EQ(VisiblePage(), "1/3");
}

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
    ASSERT_EQ(palette.Picture1.GetPicture(), palette.pictures.Of(item));
    ASSERT_EQ(palette.Shape1.Width, stamp.width);
    ASSERT_EQ(palette.Shape1.Height, stamp.height);
    ASSERT_TRUE(palette.Shape1.Visible);
    ASSERT_EQ(palette.ModeCaption(), "Tile");
    ASSERT_EQ(palette.Label5, "");
    ASSERT_EQ(document.StatusText, std::string(item.caption) + " tile selected");
    ASSERT_TRUE(document.Canvas.TakeFocus());
    ASSERT_EQ(platform.snapshots, snapshots);
  }
}

TEST_F(PaletteTest, AChangeOfSetLeavesTheStamp) {
  Item_Click(palette, *FindItem("pbbed"));
  palette.DoorMode = true;
  const std::string status = document.StatusText;
  document.Canvas.TakeFocus();
  for (int set = 4; set >= 0; --set) TileSetSelector_Click(palette, set);
  EXPECT_EQ(palette.Label2, "Bed");
  EXPECT_EQ(palette.Picture1.Width(), 40);
  EXPECT_EQ(palette.ModeCaption(), "Door");
  EXPECT_EQ(document.StatusText, status);
  EXPECT_FALSE(document.Canvas.TakeFocus());
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
  EXPECT_EQ(palette.Custom.GetPicture(), palette.pictures.Of(*FindItem("pgbed")));
  EXPECT_TRUE(palette.File1.Files().empty());
}

}  // namespace
}  // namespace morvane
