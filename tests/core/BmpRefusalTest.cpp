#include <gtest/gtest.h>

#include "document/Bmp.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/FileBytes.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

BmpMaker Sound() {
  BmpMaker maker{.width = 3, .height = 2, .data = Bytes(24, 7)};
  return maker;
}

TEST(BmpRefusal, EveryTruncationIsRefused) {
  BmpMaker runs{.width = 4,
                .height = 2,
                .bits = 8,
                .compression = 1,
                .palette = {1, 2, 3},
                .data = {4, 1, 0, 0, 0, 4, 0, 1, 2, 1, 0, 1}};
  for (const BmpMaker& maker : {Sound(), runs}) {
    const Bytes whole = maker.Make();
    ASSERT_TRUE(ReadBmp(whole).Ok());
    for (std::size_t size = 0; size < whole.size() - 2; ++size) {
      Result<Picture> read = ReadBmp(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)));
      ASSERT_FALSE(read.Ok()) << size;
      ASSERT_FALSE(read.Reason().empty());
    }
  }
}

TEST(BmpRefusal, HeadersThatLie) {
  const auto refuses = [](auto change) {
    BmpMaker maker = Sound();
    change(maker);
    return !ReadBmp(maker.Make()).Ok();
  };
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.width = 0; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.width = -3; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.height = 0; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.height = INT32_MIN; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.width = m.height = INT32_MAX; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.height = 3; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.bits = 7; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.bits = 0; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.compression = 1; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.compression = 5; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.header = 13; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.header = 2295; }));
  EXPECT_TRUE(refuses([](BmpMaker& m) {
    m.bits = 16;
    m.compression = 3;
    m.masks = {0xF0F0, 1, 2};
  }));
  Bytes pixelsInsideHeader = Sound().Make();
  pixelsInsideHeader[10] = 20;
  EXPECT_FALSE(ReadBmp(pixelsInsideHeader).Ok());
}

TEST(BmpRefusal, RunLengthsThatCannotFillThePictureAreRefusedBeforeMemoryIsTaken) {
  BmpMaker maker{.width = 60'000,
                 .height = 60'000,
                 .bits = 8,
                 .compression = 1,
                 .palette = {0},
                 .data = {0, 1}};
  Result<Picture> read = ReadBmp(maker.Make());
  ASSERT_FALSE(read.Ok());
  EXPECT_EQ(read.Reason(), "The picture is too large.");
  maker.width = maker.height = 9'000;
  EXPECT_FALSE(ReadBmp(maker.Make()).Ok());
  maker.width = maker.height = 900;
  EXPECT_TRUE(ReadBmp(maker.Make()).Ok());
}

}  // namespace
}  // namespace morvane
