#include "document/picture/PictureBox.h"

#include <gtest/gtest.h>

#include "tests/support/Sample.h"

namespace morvane {
namespace {

PictureBox SunkenBox() {
  return {44, 34, PictureBox::Border::Sunken};
}

TEST(PictureBox, BorderIsPartOfTheOuterSize) {
  PictureBox box = SunkenBox();
  EXPECT_EQ(box.ScaleWidth(), 40);
  EXPECT_EQ(box.ScaleHeight(), 30);
  box.SetWidth(3);
  EXPECT_EQ(box.ScaleWidth(), 0);
  box.SetWidth(-1);
  EXPECT_EQ(box.Width(), 3);
}

TEST(PictureBox, ShrinkingHidesButLosesNothing) {
  PictureBox box = SunkenBox();
  const Picture drawn = Speckled(40, 30);
  BitBlt(box.hDC(), 0, 0, 40, 30, drawn.View(), 0, 0);
  box.SetWidth(14);
  box.SetHeight(9);
  EXPECT_EQ(Picture(box.Image()), drawn);
  // Drawing is cut at the present inside, so what is hidden stays.
  FillBox(box.hDC(), {0, 0, 40, 30}, 0x010101);
  EXPECT_EQ(GetPixel(box.Image(), 9, 4), 0x010101U);
  EXPECT_EQ(GetPixel(box.Image(), 10, 4), GetPixel(drawn.View(), 10, 4));
  EXPECT_EQ(GetPixel(box.Image(), 9, 5), GetPixel(drawn.View(), 9, 5));
}

TEST(PictureBox, APictureReplacesTheImageAtItsNaturalSize) {
  PictureBox box = SunkenBox();
  FillBox(box.hDC(), {0, 0, 40, 30}, 0);
  const Picture narrow = Speckled(60, 10);
  box.SetPicture(narrow);
  ASSERT_EQ(box.Image().width, 60);
  ASSERT_EQ(box.Image().height, 30);
  EXPECT_TRUE(Holds(box.Image(), 0, 0, {60, 10}, narrow.View()));
  EXPECT_EQ(GetPixel(box.Image(), 5, 10), kWhite);
  EXPECT_EQ(box.Width(), 44);
}

TEST(PictureBox, NothingIsExposedBeforeRefresh) {
  PictureBox box = SunkenBox();
  box.TakeExposed();
  FillBox(box.hDC(), {3, 4, 5, 6}, 0);
  EXPECT_TRUE(box.TakeExposed().IsEmpty());
  box.Refresh();
  EXPECT_EQ(box.TakeExposed(), (Rect{3, 4, 5, 6}));
  EXPECT_TRUE(box.TakeExposed().IsEmpty());
}

TEST(PictureBox, ABoxWithoutAnInsideStillHasAnImage) {
  PictureBox box(2, 2, PictureBox::Border::Sunken);
  box.Cls();
  EXPECT_EQ(box.Image().width, 1);
  FillBox(box.hDC(), {0, 0, 9, 9}, 0);
  EXPECT_EQ(GetPixel(box.Image(), 0, 0), kWhite);
}

}  // namespace
}  // namespace morvane
