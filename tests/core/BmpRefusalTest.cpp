#include <gtest/gtest.h>

#include "document/Bmp.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

BmpMaker Sound() {
  BmpMaker maker;
  maker.width = 3;
  maker.height = 2;
  maker.data = Bytes(24, 7);
  return maker;
}

TEST(BmpRefusal, EveryTruncationIsRefused) {
  BmpMaker runs;
  runs.width = 4;
  runs.height = 2;
  runs.bits = 8;
  runs.compression = 1;
  runs.palette = {1, 2, 3};
  runs.data = {4, 1, 0, 0, 0, 4, 0, 1, 2, 1, 0, 1};
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
  BmpMaker maker;
  maker.bits = 8;
  maker.compression = 1;
  maker.palette = {0};
  maker.width = 60'000;
  maker.height = 60'000;
  maker.data = {0, 1};
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
