#include "document/NewMap.h"

#include <gtest/gtest.h>

#include "tests/support/Sample.h"

namespace morvane {
namespace {

constexpr Color kBackground = 0x80FFFF;
constexpr Color kLines = 0xC0C0C0;

struct NewMap : testing::Test, Editor {
  void ChooseNew(bool grid) {
    platform.settings["Map/Grid"] = grid ? "1" : "0";
    platform.settings["Color/Canvas"] = std::to_string(kBackground);
    platform.settings["Color/Grid"] = std::to_string(kLines);
    platform.answers = {Answer::Yes};
    mnuFileNew_Click(document);
  }

  /// Checks every pixel of the map image against the rule.
  template <typename Rule>
  void ExpectMap(const PictureView& map, Rule rule) {
    for (int y = 0; y < map.height; ++y) {
      for (int x = 0; x < map.width; ++x) {
        ASSERT_EQ(GetPixel(map, x, y), rule(x, y)) << x << "," << y;
      }
    }
  }
};

bool OnLine(int x, int y) {
  return x % 20 == 19 || y % 20 == 19;
}

TEST_F(NewMap, AsksFirstAndNoChangesNothing) {
  FillBox(document.Canvas.hDC(), {0, 0, 50, 50}, 0x123456);
  document.HasCurrentFile = true;
  document.Caption = "Morvane - a.bmp";
  const Picture before = Map();
  for (const Answer answer : {Answer::No, Answer::Cancel}) {
    platform.answers = {answer};
    mnuFileNew_Click(document);
    EXPECT_EQ(Difference(Map(), before), "");
    EXPECT_TRUE(document.HasCurrentFile);
    EXPECT_EQ(document.Caption, "Morvane - a.bmp");
  }
  EXPECT_EQ(platform.boxes.back(), (SeenBox{"Are you sure?", BoxStyle::YesNoQuestion, "New map"}));
}

TEST_F(NewMap, WithoutSettingsTheMapIsBlackAndHasNoGrid) {
  platform.answers = {Answer::Yes};
  mnuFileNew_Click(document);
  ExpectMap(document.Canvas.Image(), [](int, int) { return 0U; });
  ExpectMap(document.pbclear.Image(), [](int, int) { return 0U; });
}

TEST_F(NewMap, GridIsDrawnIntoMapAndBlankTwin) {
  ChooseNew(true);
  const auto rule = [](int x, int y) { return OnLine(x, y) ? kLines : kBackground; };
  EXPECT_EQ(document.Canvas.Image().width, 615);
  EXPECT_EQ(document.Canvas.Image().height, 483);
  ExpectMap(document.Canvas.Image(), rule);
  EXPECT_EQ(document.pbclear.Image().width, 619);
  ExpectMap(document.pbclear.Image(), rule);
  EXPECT_EQ(document.Canvas.TakeExposed().Intersected({0, 0, 615, 483}), (Rect{0, 0, 615, 483}));
}

TEST_F(NewMap, GrowingShowsTheGridDrawnAheadOnWhiteOutToItsExtent) {
  ChooseNew(true);
  form.Form_Resize(2000, 1400);
  const PictureView map = document.Canvas.Image();
  ASSERT_EQ(map.width, 2000 - 168 - 4);
  ASSERT_EQ(map.height, 1400 - 50 - 4);
  ExpectMap(map, [](int x, int y) {
    if (OnLine(x, y) && x < 1428 && y < 1164) return kLines;
    return x < 615 && y < 483 ? kBackground : kWhite;
  });
  ExpectMap(document.pbclear.Image(), [](int x, int y) {
    if (x >= 619 || y >= 487) return kWhite;
    return OnLine(x, y) ? kLines : kBackground;
  });
}

TEST_F(NewMap, HiddenPixelsOfTheOldMapNeverComeBack) {
  form.Form_Resize(1000, 800);
  FillBox(document.Canvas.hDC(), {0, 0, 2000, 2000}, 0x0000FF);
  form.Form_Resize(500, 400);
  ChooseNew(false);
  EXPECT_EQ(document.Canvas.Image().width, 328);
  form.Form_Resize(1000, 800);
  ExpectMap(document.Canvas.Image(),
            [](int x, int y) { return x < 328 && y < 346 ? kBackground : kWhite; });
}

TEST_F(NewMap, AWindowLargerThanTheExtentHasNoGridBeyondIt) {
  form.Form_Resize(2000, 1400);
  ChooseNew(true);
  ExpectMap(document.Canvas.Image(), [](int x, int y) {
    return OnLine(x, y) && x < 1428 && y < 1164 ? kLines : kBackground;
  });
  ExpectMap(document.pbclear.Image(),
            [](int x, int y) { return OnLine(x, y) ? kLines : kBackground; });
}

TEST_F(NewMap, HasNoFileAndLeavesUndoAlone) {
  document.CurrentFile = "/maps/a.bmp";
  document.HasCurrentFile = true;
  document.Caption = "Morvane - a.bmp";
  const int snapshots = platform.snapshots;
  ChooseNew(true);
  EXPECT_FALSE(document.HasCurrentFile);
  EXPECT_EQ(document.CurrentFile, "/maps/a.bmp");
  EXPECT_EQ(document.Caption, "Morvane");
  EXPECT_EQ(platform.snapshots, snapshots);
  EXPECT_FALSE(document.mnuEditUndoEnabled);
}

}  // namespace
}  // namespace morvane
