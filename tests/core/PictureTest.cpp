#include <gtest/gtest.h>

#include <random>

#include "document/picture/Blit.h"
#include "document/picture/PictureBox.h"
#include "tests/support/Difference.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

class RandomPictures : public testing::Test {
 protected:
  int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

  /// Most pixels have the colour key, some a colour that differs from it in one bit.
  Picture WithKey(int width, int height, Color key) {
    Picture picture = Speckled(width, height, Random(1, 99));
    for (int i = 0; i < width * height; ++i) {
      const Color color = Random(0, 9) == 0 ? key ^ 1U << Random(0, 23) : key;
      if (Random(0, 3) > 0) SetPixelV(picture.Draw(), i % width, i / width, color);
    }
    return picture;
  }

  std::mt19937 random_{1};
};

TEST_F(RandomPictures, CopiesAreClippedAndEqualToSlowOnes) {
  for (int i = 0; i < 4000; ++i) {
    SCOPED_TRACE(i);
    const bool hasKey = i % 4 < 2;
    const Color key = i % 2 == 0 ? kWhite : 0x010203;
    const Picture from = WithKey(Random(1, 90), Random(1, 9), key);
    Picture copy = Speckled(Random(1, 90), Random(1, 12), 7);
    Picture slow = copy;
    const Rect part = {Random(-5, 20), Random(-2, 4), Random(21, 90), Random(5, 12)};  // of "from"
    const int x = Random(-60, 90);
    const int y = Random(-8, 12);
    Rect damage;
    Rect drawn;
    const auto onto = [](Picture& picture, Rect& rect) {
      return Surface{picture.Row(0), picture.Width(), picture.Height(), picture.Width(), &rect};
    };
    if (hasKey) {
      TransparentBlt(onto(copy, damage), x, y, part.Width(), part.Height(), from.View(), part.left,
                     part.top, key);
    } else {
      BitBlt(onto(copy, damage), x, y, part.Width(), part.Height(), from.View(), part.left,
             part.top);
    }
    for (int fromY = std::max(0, part.top); fromY < std::min(part.bottom, from.Height()); ++fromY) {
      for (int fromX = std::max(0, part.left); fromX < std::min(part.right, from.Width());
           ++fromX) {
        const Color color = GetPixel(from.View(), fromX, fromY);
        if (hasKey && color == key) continue;
        SetPixelV(onto(slow, drawn), x + fromX - part.left, y + fromY - part.top, color);
      }
    }
    ASSERT_EQ(Difference(copy, slow), "");
    ASSERT_EQ(damage, hasKey ? damage.United(drawn) : drawn);
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

TEST(PictureBox, ExposesOnlyWhatWasRefreshed) {
  PictureBox box(44, 34, PictureBox::Border::Sunken);
  box.TakeExposed();
  box.SetWidth(14);
  box.SetHeight(9);
  FillBox(box.hDC(), {3, 4, 40, 30}, 0);  // clipped
  EXPECT_TRUE(box.TakeExposed().IsEmpty());
  box.Refresh();
  FillBox(box.hDC(), {5, 1, 6, 2}, 0);
  box.Refresh();
  EXPECT_EQ(box.TakeExposed(), (Rect{3, 1, 10, 5}));

  PictureBox empty(2, 2, PictureBox::Border::Sunken);
  empty.Cls();
  FillBox(empty.hDC(), {0, 0, 9, 9}, 0);
  EXPECT_EQ(Picture(empty.Image()), Picture(1, 1)) << "a file of no pixels could not be read back";
}

}  // namespace
}  // namespace morvane
