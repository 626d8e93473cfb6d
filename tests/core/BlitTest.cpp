#include "document/picture/Blit.h"

#include <gtest/gtest.h>

#include "document/picture/Transform.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

/// The copy as its definition tells it, pixel by pixel.
Picture ReferenceCopy(Picture target, const Rect& place, const Picture& source, int sourceX,
                      int sourceY, const Color* transparent) {
  for (int y = 0; y < place.Height(); ++y) {
    for (int x = 0; x < place.Width(); ++x) {
      const int fromX = sourceX + x;
      const int fromY = sourceY + y;
      if (fromX < 0 || fromY < 0 || fromX >= source.Width() || fromY >= source.Height()) continue;
      const Color color = GetPixel(source.View(), fromX, fromY);
      if (transparent != nullptr && color == *transparent) continue;
      SetPixelV(target.Draw(), place.left + x, place.top + y, color);
    }
  }
  return target;
}

TEST(Blit, CopiesAreCutAtEveryEdge) {
  const Picture source = Speckled(7, 5);
  const Picture blank(11, 9, 0x123456);
  const Color key = GetPixel(source.View(), 3, 2);
  for (int x = -8; x <= 12; ++x) {
    for (int y = -6; y <= 10; ++y) {
      for (const int shift : {0, 2, -1}) {
        Picture opaque = blank;
        BitBlt(opaque.Draw(), x, y, 7, 5, source.View(), shift, shift);
        ASSERT_EQ(opaque, ReferenceCopy(blank, {x, y, x + 7, y + 5}, source, shift, shift, nullptr))
            << x << "," << y;
        Picture keyed = blank;
        TransparentBlt(keyed.Draw(), x, y, 7, 5, source.View(), shift, shift, key);
        ASSERT_EQ(keyed, ReferenceCopy(blank, {x, y, x + 7, y + 5}, source, shift, shift, &key));
      }
    }
  }
}

TEST(Blit, CopiesOfEverySizeAndAlignmentAreEqualToPlainOnes) {
  constexpr Color kKey = 0x010101;
  for (int width = 1; width <= 70; ++width) {
    const int height = width % 7 + 1;
    Picture source = Speckled(width + 3, height);
    // Key pixels in runs of many lengths, and long ones that are left out as a whole.
    for (int x = 0; x < source.Width(); ++x) {
      for (int y = 0; y < height; ++y) {
        if ((x * 7 + y * 3) % 11 < 5 || y == 2) SetPixelV(source.Draw(), x, y, kKey);
      }
    }
    for (const int shift : {0, 1, 3}) {
      const Rect place = {5 + shift, 2, 5 + shift + width, 2 + height};
      const Picture blank = Speckled(90, 11, 9);
      Picture keyed = blank;
      TransparentBlt(keyed.Draw(), place.left, place.top, width, height, source.View(), shift, 0,
                     kKey);
      ASSERT_EQ(keyed, ReferenceCopy(blank, place, source, shift, 0, &kKey))
          << width << "+" << shift;
      Picture opaque = blank;
      BitBlt(opaque.Draw(), place.left, place.top, width, height, source.View(), shift, 0);
      ASSERT_EQ(opaque, ReferenceCopy(blank, place, source, shift, 0, nullptr)) << width;
    }
  }
}

TEST(Blit, ASinglePixelBetweenKeyPixelsIsNeverLeftOut) {
  for (const Color nearly : {0xFEFFFFU, 0xFFFEFFU, 0xFFFFFEU}) {
    for (int at = 0; at < 70; ++at) {
      Picture source(70, 1, kWhite);
      SetPixelV(source.Draw(), at, 0, nearly);
      Picture target(70, 1, 0);
      TransparentBlt(target.Draw(), 0, 0, 70, 1, source.View(), 0, 0, kWhite);
      EXPECT_EQ(GetPixel(target.View(), at, 0), nearly) << at;
    }
  }
}

TEST(Blit, DamageIsWhatWasReallyDrawn) {
  const Picture source = Speckled(20, 20);
  Picture target(50, 40);
  Rect damage;
  Surface surface = target.Draw();
  surface.damage = &damage;
  BitBlt(surface, 40, -5, 20, 20, source.View(), 0, 0);
  EXPECT_EQ(damage, (Rect{40, 0, 50, 15}));
  BitBlt(surface, 50, 0, 20, 20, source.View(), 0, 0);
  EXPECT_EQ(damage, (Rect{40, 0, 50, 15}));
  FillBox(surface, {10, 10, 12, 30}, 0);
  EXPECT_EQ(damage, (Rect{10, 0, 50, 30}));
}

TEST(Blit, StretchingKeepsWholeBlocksAndSamplesTheMiddle) {
  const Picture source = Speckled(4, 3);
  Picture enlarged(12, 9);
  StretchBlt(enlarged.Draw(), 0, 0, 12, 9, source.View(), 0, 0, 4, 3);
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 12; ++x) {
      ASSERT_EQ(GetPixel(enlarged.View(), x, y), GetPixel(source.View(), x / 3, y / 3));
    }
  }
  Picture back(4, 3);
  StretchBlt(back.Draw(), 0, 0, 4, 3, enlarged.View(), 0, 0, 12, 9);
  EXPECT_EQ(back, source);
}

TEST(Blit, StretchingOfEverySizeTakesTheNearestPixels) {
  const auto nearest = [](int at, int size, int sourceSize) {
    return (at * 2 + 1) * sourceSize / (size * 2);
  };
  const auto expectNearest = [&](Size size, Size part) {
    const Picture source = Speckled(part.width + 2, part.height + 1);
    // The left and upper edge of the target cut something away.
    Picture scaled(size.width - 1, size.height - 1);
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
  };
  for (int width = 2; width <= 70; ++width) {
    for (const int sourceWidth : {1, 2, 7, 40, 70}) expectNearest({width, 9}, {sourceWidth, 4});
  }
  expectNearest({2500, 3}, {700, 5});  // wider than what is scaled at once
}

/// Where a pixel goes, as the definition tells it.
Picture ReferenceTransform(const PictureView& picture, Transform transform) {
  const int W = picture.width;
  const int H = picture.height;
  const bool turns = transform == Transform::RotateRight || transform == Transform::RotateLeft;
  Picture result(turns ? H : W, turns ? W : H);
  for (int y = 0; y < H; ++y) {
    for (int x = 0; x < W; ++x) {
      const Pixel pixel = picture.Row(y)[x];
      if (transform == Transform::FlipHorizontal) result.Row(y)[W - 1 - x] = pixel;
      if (transform == Transform::FlipVertical) result.Row(H - 1 - y)[x] = pixel;
      if (transform == Transform::RotateRight) result.Row(x)[H - 1 - y] = pixel;
      if (transform == Transform::RotateLeft) result.Row(W - 1 - x)[y] = pixel;
    }
  }
  return result;
}

TEST(Transform, FlipsAndTurnsOfEverySizeAreEqualToPlainOnes) {
  std::vector<Size> sizes = {{1100, 1001}, {1024, 1040}};  // too large for the cache
  for (int side = 1; side <= 70; ++side) sizes.insert(sizes.end(), {{side, 71 - side}, {side, 5}});
  for (const Size size : sizes) {
    const Picture whole = Speckled(size.width + 3, size.height);
    PictureView part = whole.View();
    part.pixels += 3;  // rows that begin anywhere
    part.width = size.width;
    for (const Transform transform : {Transform::FlipHorizontal, Transform::FlipVertical,
                                      Transform::RotateRight, Transform::RotateLeft}) {
      ASSERT_EQ(Transformed(part, transform), ReferenceTransform(part, transform))
          << size.width << "x" << size.height;
    }
  }
}

}  // namespace
}  // namespace morvane
