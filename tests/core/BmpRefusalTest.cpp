#include <gtest/gtest.h>

#include "document/bmp/Bmp.h"
#include "document/io/LittleEndian.h"
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
  EXPECT_TRUE(refuses([](BmpMaker& m) { m.height = 0; }));
  for (const int side : {-3, INT32_MIN, INT32_MIN + 1, INT32_MAX}) {
    EXPECT_TRUE(refuses([&](BmpMaker& m) { m.width = side; })) << side;
    EXPECT_TRUE(refuses([&](BmpMaker& m) { m.height = side; })) << side;
    EXPECT_TRUE(refuses([&](BmpMaker& m) { m.width = m.height = side; })) << side;
  }
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
}

TEST(BmpRefusal, FieldsAtTheirExtremes) {
  constexpr std::uint32_t kAll = 0xFFFFFFFF;
  struct Row {
    std::size_t at;
    std::uint32_t value;
    bool isRead;
  };
  // The places of a file of 3 x 2 pixels of 24 bits: 54 bytes of headers and 24 of pixels.
  const std::vector<Row> rows = {
      {2, 0, true},      {2, kAll, true},  // size of the file, which many programs get wrong
      {10, 0, false},    {10, 53, false},  // place of the pixels
      {10, 55, false},   {10, 78, false},       {10, 1U << 31U, false},
      {10, kAll, false}, {14, 0, false},        {14, 11, false},
      {14, 65, false},   {14, kAll, false},     {26, 24U << 16U, true},  // planes
      {30, 7, false},    {30, kAll, false},                              // compression
      {34, 0, true},     {34, kAll, true},                               // size of the pixels
      {38, kAll, true},  {42, 1U << 31U, true},                          // fineness
      {46, kAll, true},  {50, kAll, true}};  // colours, and how many matter
  Result<Picture> sound = ReadBmp(Sound().Make());
  for (const Row& row : rows) {
    Bytes file = Sound().Make();
    Write32(file, row.at, row.value);
    Result<Picture> read = ReadBmp(file);
    ASSERT_EQ(read.Ok(), row.isRead) << row.value << " at " << row.at;
    if (!row.isRead) continue;
    EXPECT_EQ(read.Value(), sound.Value()) << row.value << " at " << row.at;
  }
}

TEST(BmpRefusal, PalettesTooShortOrTooLong) {
  struct Row {
    std::uint32_t count;  ///< that the header tells
    std::size_t entries;  ///< that the file has
    Color first, second;  ///< pixels of index 0 and 2
  };
  for (const Row& row : {Row{0, 3, 1, 3},
                         {0xFFFFFFFF, 3, 1, 3},
                         {3, 3, 1, 3},
                         {2, 3, 1, 0},
                         {256, 2, 1, 0},
                         {1, 1, 1, 0},
                         {0, 0, 0, 0},
                         {300, 300, 1, 3}}) {
    BmpMaker maker{.width = 2, .height = 1, .bits = 8, .data = {0, 2, 0, 0}};
    for (Color color = 1; color <= row.entries; ++color) maker.palette.push_back(color);
    Bytes bytes = maker.Make();
    Write32(bytes, 46, row.count);
    MemorySource file(bytes);
    Result<LoadedPicture> read = ReadBmp(file);
    ASSERT_TRUE(read.Ok()) << row.count << " of " << row.entries << ": " << read.Reason();
    EXPECT_EQ(GetPixel(read.Value().picture.View(), 0, 0), row.first) << row.count;
    EXPECT_EQ(GetPixel(read.Value().picture.View(), 1, 0), row.second) << row.count;
    EXPECT_EQ(read.Value().isDamaged, row.second == 0) << row.count;
  }
}

TEST(BmpRefusal, RunsThatStopShortOrRunOver) {
  struct Row {
    Bytes data;
    std::string pixels;  ///< upper row, then lower row, as indices; empty where it is refused
    bool isDamaged = false;
  };
  const std::vector<Row> rows = {
      {{3, 1, 0, 0, 3, 2, 0, 1}, "222111"},
      {{0, 1}, "000000"},                                // nothing but the end mark
      {{255, 1, 255, 2, 0, 1}, "000111", true},          // over the end of its row
      {{0, 0, 0, 0, 255, 1, 0, 1}, "000000", true},      // above the top row
      {{0, 2, 255, 255, 3, 1, 0, 1}, "000000", true},    // a jump out of the picture
      {{0, 2, 1, 1, 1, 2, 0, 1}, "020000"},              // a jump inside of it
      {{0, 3, 1, 2, 1, 9, 0, 1}, "000121"},              // the fill byte isn't a pixel
      {{0, 5, 1, 2, 1, 2, 2, 0, 0, 1}, "000121", true},  // single pixels over the end of their row
      {{0, 2, 0, 3, 0, 1}, "000000", true},
      {{3, 1, 0, 0, 3, 2, 0, 0, 0, 0}, "222111"},  // all rows, but no end mark
      {{3, 9, 0, 1}, "000999", true},
      {{0, 3, 1, 9, 1, 0, 0, 1}, "000191", true},
      {{3, 1, 0, 0, 3, 2}, ""},  // the last row doesn't end
      {{3, 1, 0, 0, 3}, ""},
      {{3, 1, 0}, ""},
      {{3, 1, 0, 2, 1}, ""},
      {{3, 1, 0, 4, 1, 2, 1}, ""},
      {{0, 255}, ""}};
  for (const Row& row : rows) {
    const BmpMaker maker{.width = 3,
                         .height = 2,
                         .bits = 8,
                         .compression = 1,
                         .palette = {'0', '1', '2'},
                         .data = row.data};
    const Bytes bytes = maker.Make();
    MemorySource file(bytes);
    Result<LoadedPicture> read = ReadBmp(file);
    std::string pixels;
    for (int i = 0; read.Ok() && i < 6; ++i) {
      const Color color = GetPixel(read.Value().picture.View(), i % 3, i / 3);
      pixels += color == 0 ? '9' : static_cast<char>(color);
    }
    EXPECT_EQ(pixels, row.pixels) << "in row " << &row - rows.data();
    EXPECT_EQ(read.Ok() && read.Value().isDamaged, row.isDamaged)
        << "in row " << &row - rows.data();
  }
  // The half byte that fills up a row of run lengths of 4 bits isn't meant.
  const Bytes filled =
      BmpMaker{.bits = 4, .compression = 2, .palette = {0}, .data = {2, 9, 0, 1}}.Make();
  MemorySource file(filled);
  EXPECT_FALSE(ReadBmp(file).Value().isDamaged);
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
