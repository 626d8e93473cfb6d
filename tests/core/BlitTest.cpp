#include "document/Blit.h"

#include <gtest/gtest.h>

#include "tests/support/Sample.h"

namespace morvane {
namespace {

/// The copy as its definition tells it, pixel by pixel.
Picture PlainCopy(Picture target, const Rect& place, const Picture& source, int sourceX,
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
        ASSERT_EQ(opaque, PlainCopy(blank, {x, y, x + 7, y + 5}, source, shift, shift, nullptr))
            << x << "," << y;
        Picture keyed = blank;
        TransparentBlt(keyed.Draw(), x, y, 7, 5, source.View(), shift, shift, key);
        ASSERT_EQ(keyed, PlainCopy(blank, {x, y, x + 7, y + 5}, source, shift, shift, &key));
      }
    }
  }
}

TEST(Blit, OnlyExactlyTheKeyColourIsSeenThrough) {
  Picture source(3, 1, kWhite);
  SetPixelV(source.Draw(), 1, 0, 0xFEFFFF);
  Picture target(3, 1, 0x000000);
  TransparentBlt(target.Draw(), 0, 0, 3, 1, source.View(), 0, 0, kWhite);
  EXPECT_EQ(GetPixel(target.View(), 0, 0), 0x000000U);
  EXPECT_EQ(GetPixel(target.View(), 1, 0), 0xFEFFFFU);
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

}  // namespace
}  // namespace morvane
