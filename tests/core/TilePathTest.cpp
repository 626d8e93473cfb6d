#include "tools/TilePath.h"

#include <gtest/gtest.h>

#include "document/NewMap.h"
#include "palette/TileSelection.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"

namespace morvane {
namespace {

struct TilePathTest : testing::Test, Editor {
  TilePathTest() {
    platform.settings = {{"Map/Grid", "1"}, {"Color/Canvas", "16777215"}, {"Color/Grid", "255"}};
    platform.answers = {Answer::Yes};
    mnuFileNew_Click(document);
  }
  void Pick(const char* control) { Item_Click(palette, *FindItem(control)); }
  const Picture& PictureOf(const char* control) const {
    return palette.pictures.Of(*FindItem(control));
  }
};

TEST_F(TilePathTest, PressesLandOrAreRefusedByTheTable) {
  struct Row {
    int pointer;
    int snap;
    bool accepted;
  };
  const std::vector<Row> rows = {{0, 0, true},   {18, 0, true},   {19, 0, true},  {20, 20, true},
                                 {38, 20, true}, {39, 0, true},   {40, 40, true}, {58, 40, true},
                                 {59, 0, false}, {60, 60, true},  {78, 60, true}, {79, 0, false},
                                 {99, 0, false}, {100, 100, true}};
  const Picture blank = Map();
  for (const Row& across : rows) {
    for (const Row& down : rows) {
      const int snapshots = platform.snapshots;
      const auto X = static_cast<float>(across.pointer);
      const auto Y = static_cast<float>(down.pointer);
      Picture expected = blank;
      const bool accepted = across.accepted && down.accepted;
      if (accepted) {
        BitBlt(expected.Draw(), across.snap, down.snap, 20, 20, PictureOf("pbfloor").View(), 0, 0);
      }
      Canvas_MouseDown(palette, kLeftButton, X, Y);
      ASSERT_EQ(Difference(Map(), expected), "") << across.pointer << "," << down.pointer;
      ASSERT_EQ(platform.snapshots, snapshots + (accepted ? 1 : 0));
      Canvas_MouseDown(palette, kRightButton, X, Y);
      ASSERT_EQ(Difference(Map(), blank), "") << across.pointer << "," << down.pointer;
      ASSERT_EQ(platform.snapshots, snapshots + (accepted ? 2 : 0));
    }
  }
}

TEST_F(TilePathTest, StampsAreCutForGoodAtTheEdgeOfTheDrawing) {
  Pick("pb4040");
  Canvas_MouseDown(palette, kLeftButton, 614, 470);
  form.Form_Resize(900, 700);
  const PictureView map = document.Canvas.Image();
  EXPECT_EQ(GetPixel(map, 614, 482), GetPixel(PictureOf("pb4040").View(), 14, 22));
  EXPECT_EQ(GetPixel(map, 616, 482), kWhite);
  EXPECT_EQ(GetPixel(map, 610, 484), kWhite);
}

TEST_F(TilePathTest, EveryPressRunsTheClosingStepsAndHidesTheOutline) {
  for (const int button : {kLeftButton, kRightButton, kMiddleButton}) {
    document.mnuEditUndoEnabled = document.UndoButtonEnabled = false;
    palette.Shape1.Visible = true;
    Canvas_MouseDown(palette, button, 59, 59);
    EXPECT_TRUE(document.mnuEditUndoEnabled);
    EXPECT_TRUE(document.UndoButtonEnabled);
    EXPECT_FALSE(palette.Shape1.Visible);
  }
  document.Canvas.TakeExposed();
  Canvas_MouseDown(palette, kLeftButton, 100, 60);
  EXPECT_EQ(document.Canvas.TakeExposed(), (Rect{100, 60, 120, 80}));
}

}  // namespace
}  // namespace morvane
