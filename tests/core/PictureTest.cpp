#include <gtest/gtest.h>

#include <random>

#include "document/picture/Transform.h"
#include "tests/support/ReferenceModel.h"

namespace morvane {
namespace {

/// A copy pixel by pixel.
Picture ReferenceCopy(Picture target, const Rect& place, const Picture& source, int sourceX,
                      int sourceY, const Color* key) {
  for (int y = 0; y < place.Height(); ++y) {
    for (int x = 0; x < place.Width(); ++x) {
      const int fromX = sourceX + x;
      const int fromY = sourceY + y;
      if (fromX < 0 || fromY < 0 || fromX >= source.Width() || fromY >= source.Height()) continue;
      const Color color = GetPixel(source.View(), fromX, fromY);
      if (key == nullptr || color != *key) {
        SetPixelV(target.Draw(), place.left + x, place.top + y, color);
      }
    }
  }
  return target;
}

class RandomPictures : public testing::Test {
 protected:
  int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

  /// Pixels of the colour key in runs of any length, and pixels that differ from it in one bit.
  Picture WithKey(int width, int height, Color key) {
    Picture picture = Speckled(width, height, Random(1, 99));
    for (int y = 0; y < height; ++y) {
      for (int x = Random(0, 5); x < width; x += Random(1, 20)) {
        const int end = std::min(width, x + Random(1, 20));
        FillBox(picture.Draw(), {x, y, end, y + 1}, key);
        if (Random(0, 2) == 0) SetPixelV(picture.Draw(), x, y, key ^ 1U << Random(0, 23));
      }
    }
    return picture;
  }

  std::mt19937 random_{1};
};

TEST_F(RandomPictures, CopiesAreClippedAndEqualToSlowOnes) {
  for (int i = 0; i < 4000; ++i) {
    const Color key = i % 2 == 0 ? kWhite : 0x010203;
    const Picture source = WithKey(Random(1, 90), Random(1, 9), key);
    const Picture before = Speckled(Random(1, 90), Random(1, 12), 7);
    const int x = Random(-60, 90);
    const int y = Random(-8, 12);
    const Rect place = {x, y, x + Random(1, 90), y + Random(1, 12)};
    const int sourceX = Random(-5, 20);
    const int sourceY = Random(-2, 4);
    Picture copy = before;
    Rect damage;
    Surface surface = copy.Draw();
    surface.damage = &damage;
    const auto draw = [&](auto copyInto, auto... more) {
      copyInto(surface, x, y, place.Width(), place.Height(), source.View(), sourceX, sourceY,
               more...);
    };
    i % 4 < 2 ? draw(&BitBlt) : draw(&TransparentBlt, key);
    const Picture expected =
        ReferenceCopy(before, place, source, sourceX, sourceY, i % 4 < 2 ? nullptr : &key);
    ASSERT_EQ(Difference(copy, expected), "") << "copy " << i;
    const Rect all = {0, 0, before.Width(), before.Height()};
    const Rect from = {x - sourceX, y - sourceY, x - sourceX + source.Width(),
                       y - sourceY + source.Height()};
    const Rect drawn = place.Intersected(all).Intersected(from);
    ASSERT_TRUE(damage == drawn || (damage.IsEmpty() && drawn.IsEmpty())) << "copy " << i;
  }
}

TEST_F(RandomPictures, StretchingTakesTheNearestPixels) {
  const auto nearest = [](int at, int size, int sourceSize) {
    return (at * 2 + 1) * sourceSize / (size * 2);
  };
  for (int i = 0; i < 500; ++i) {
    const Size part = {Random(1, 70), Random(1, 9)};
    const Size size = {i == 0 ? 2500 : Random(2, 120), Random(2, 12)};
    const Picture source = Speckled(part.width + 2, part.height + 1);
    Picture scaled(size.width - 1, size.height - 1);  // clipped at the left and upper edge
    StretchBlt(scaled.Draw(), -1, -1, size.width, size.height, source.View(), 2, 1, part.width,
               part.height);
    for (int y = 0; y < scaled.Height(); ++y) {
      for (int x = 0; x < scaled.Width(); ++x) {
        ASSERT_EQ(GetPixel(scaled.View(), x, y),
                  GetPixel(source.View(), 2 + nearest(x + 1, size.width, part.width),
                           1 + nearest(y + 1, size.height, part.height)))
            << size.width << " from " << part.width;
      }
    }
  }
}

TEST_F(RandomPictures, FlipsAndTurnsMoveEveryPixelAndCanBeTakenBack) {
  using enum Transform;
  std::vector<Size> sizes = {{1100, 1001}, {1024, 1040}};  // larger than the cache
  for (int i = 0; i < 200; ++i) sizes.push_back({Random(1, 90), Random(1, 90)});
  for (const Size size : sizes) {
    const Picture whole = Speckled(size.width + 3, size.height);
    PictureView part = whole.View();
    part.pixels += 3;  // unaligned rows
    part.width = size.width;
    for (const auto& [transform, inverse] : {std::pair(FlipHorizontal, FlipHorizontal),
                                             {FlipVertical, FlipVertical},
                                             {RotateRight, RotateLeft},
                                             {RotateLeft, RotateRight}}) {
      const Picture done = Transformed(part, transform);
      ASSERT_EQ(Difference(done, ReferenceModel::Turned(Picture(part), transform)), "");
      ASSERT_EQ(Difference(Transformed(done.View(), inverse), Picture(part)), "");
    }
  }
}

TEST(PictureBox, KeepsWhatIsHiddenAndExposesOnlyWhatWasRefreshed) {
  PictureBox box(44, 34, PictureBox::Border::Sunken);
  const Picture drawn = Speckled(40, 30);
  BitBlt(box.hDC(), 0, 0, 40, 30, drawn.View(), 0, 0);
  box.Refresh();
  box.TakeExposed();
  box.SetWidth(14);
  box.SetHeight(9);
  EXPECT_EQ(Picture(box.Image()), drawn);
  FillBox(box.hDC(), {3, 4, 40, 30}, 0x010101);  // clipped at the new size
  EXPECT_EQ(GetPixel(box.Image(), 9, 4), 0x010101U);
  EXPECT_EQ(GetPixel(box.Image(), 10, 4), GetPixel(drawn.View(), 10, 4));
  EXPECT_EQ(GetPixel(box.Image(), 9, 5), GetPixel(drawn.View(), 9, 5));
  EXPECT_TRUE(box.TakeExposed().IsEmpty());
  box.Refresh();
  EXPECT_EQ(box.TakeExposed(), (Rect{3, 4, 10, 5}));
  box.SetWidth(-1);
  EXPECT_EQ(box.Width(), 14);

  PictureBox empty(2, 2, PictureBox::Border::Sunken);
  empty.Cls();
  EXPECT_EQ(empty.Image().width, 1);  // a file of no pixels could not be read back
  FillBox(empty.hDC(), {0, 0, 9, 9}, 0);
  EXPECT_EQ(GetPixel(empty.Image(), 0, 0), kWhite);
}

}  // namespace
}  // namespace morvane
