#include <gtest/gtest.h>

#include <cstring>

#include "document/bmp/Bmp.h"
#include "document/bmp/PixelBytes.h"
#include "document/io/LittleEndian.h"
#include "document/picture/Transform.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/FileBytes.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

void ExpectSame(const BmpMaker& maker, const Picture& expected) {
  const Bytes bytes = maker.Make();
  MemorySource file(bytes);
  Result<LoadedPicture> read = ReadBmp(file);
  ASSERT_TRUE(read.Ok()) << read.Reason();
  EXPECT_EQ(read.Value().picture, expected);
  EXPECT_FALSE(read.Value().isDamaged);
}

/// A picture from rows of palette indices, top row first.
Picture Indexed(const BmpMaker& maker, const std::vector<std::vector<int>>& rows) {
  Picture picture(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      SetPixelV(picture.Draw(), x, y, maker.palette[rows[y][x]]);
    }
  }
  return picture;
}

TEST(Bmp, PixelsArePackedAsOnEveryProcessor) {
  const Picture picture = Speckled(80, 1);
  for (int count = 0; count <= 70; ++count) {
    const Pixel* from = picture.View().Row(0) + count % 5;
    const auto size = static_cast<std::size_t>(count) * 3;
    Bytes packed(size + 1, 77);
    Bytes expected(size + 1, 77);
    PackPixels(packed.data(), from, count);
    PackPixelsScalar(expected.data(), from, count);
    ASSERT_EQ(packed, expected) << count;
    std::vector<Pixel> unpacked(size + 1, 77);
    std::vector<Pixel> plainly(size + 1, 77);
    UnpackPixels(unpacked.data(), packed.data(), count);
    UnpackPixelsScalar(plainly.data(), packed.data(), count);
    ASSERT_EQ(unpacked, plainly) << count;
    ASSERT_TRUE(std::equal(from, from + count, unpacked.begin()));
  }
}

TEST(Bmp, AnyPieceOfAFileIsThatPieceOfTheWhole) {
  for (const int width : {1, 6, 7, 70}) {
    const Picture picture = Speckled(width, 5);
    const Bytes whole = WriteBmp(picture.View());
    BmpEncoder file(picture.View());
    for (std::size_t size = 1; size <= 70; ++size) {
      Bytes pieces(whole.size());
      for (std::size_t place = 0; place < whole.size(); place += size) {
        const std::size_t count = std::min(size, whole.size() - place);
        ASSERT_EQ(file.ReadAt(place, std::span(pieces).subspan(place, count)), "");
      }
      ASSERT_EQ(pieces, whole) << width << " in pieces of " << size;
    }
  }
}

TEST(Bmp, FilesLongerThanAChunkAreReadAsAWhole) {
  const Picture large = Speckled(701, 411);
  Bytes file = WriteBmp(large.View());
  EXPECT_EQ(ReadBmp(file).Value(), large);
  // A gap before the pixels, as the header may tell.
  constexpr std::uint32_t kGap = 100'000;
  file.insert(file.begin() + 54, kGap, 0);
  Write32(file, 10, 54 + kGap);
  EXPECT_EQ(ReadBmp(file).Value(), large);

  // Single pixels, so that every border of a chunk lies inside of something.
  BmpMaker maker{.width = 601, .height = 901, .bits = 8, .compression = 1};
  Picture expected(maker.width, maker.height);
  for (unsigned i = 0; i < 256; ++i) maker.palette.push_back(i * 0x010305U & 0xFFFFFFU);
  for (int y = maker.height - 1; y >= 0; --y) {
    for (int x = 0; x < maker.width; x += 200) {
      const int count = std::min(200, maker.width - x);
      maker.data.insert(maker.data.end(), {static_cast<std::uint8_t>(count == 1 ? 1 : 0),
                                           static_cast<std::uint8_t>(count == 1 ? y : count)});
      for (int i = 0; i < count; ++i) {
        const auto index = static_cast<std::uint8_t>(count == 1 ? y : x + i + y);
        if (count > 1) maker.data.push_back(index);
        SetPixelV(expected.Draw(), x + i, y, maker.palette[index]);
      }
    }
    maker.data.insert(maker.data.end(), {0, 0});
  }
  maker.data.insert(maker.data.end(), {0, 1});
  ExpectSame(maker, expected);
}

TEST(Bmp, WrittenFileIsExactlyThisOne) {
  Picture picture(2, 2, kWhite);
  SetPixelV(picture.Draw(), 0, 0, 0x030201);  // red 1, green 2, blue 3
  const Bytes expected = {'B',  'M',  70,  0,   0, 0, 0,  0, 0, 0,   54,   0,    0,   0,
                          40,   0,    0,   0,   2, 0, 0,  0, 2, 0,   0,    0,    1,   0,
                          24,   0,    0,   0,   0, 0, 16, 0, 0, 0,   0xC4, 0x0E, 0,   0,
                          0xC4, 0x0E, 0,   0,   0, 0, 0,  0, 0, 0,   0,    0,    255, 255,
                          255,  255,  255, 255, 0, 0, 3,  2, 1, 255, 255,  255,  0,   0};
  EXPECT_EQ(WriteBmp(picture.View()), expected);
}

TEST(Bmp, ReadsIndexedDepthsInBothDirectionsAndAllHeaders) {
  for (const std::uint32_t header : {12U, 16U, 40U, 64U, 108U, 124U}) {
    BmpMaker maker{.header = header,
                   .width = 9,
                   .height = 2,
                   .bits = 2,
                   .palette = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF}};
    maker.data = {0b00011011, 0b11100100, 0b01000000, 0,  // lower row
                  0b11111111, 0b00000000, 0b10000000, 0};
    const std::vector<std::vector<int>> rows = {{3, 3, 3, 3, 0, 0, 0, 0, 2},
                                                {0, 1, 2, 3, 3, 2, 1, 0, 1}};
    ExpectSame(maker, Indexed(maker, rows));
    if (header < 40) continue;
    maker.height = -2;
    ExpectSame(maker, Indexed(maker, {rows[1], rows[0]}));
  }
  BmpMaker one{.width = 10,
               .height = 1,
               .bits = 1,
               .palette = {0x112233, 0x445566},
               .data = {0b10110000, 0b01000000, 0, 0}};
  ExpectSame(one, Indexed(one, {{1, 0, 1, 1, 0, 0, 0, 0, 0, 1}}));
  BmpMaker four = one;
  four.width = 3;
  four.bits = 4;
  four.palette = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  four.data = {0x2F, 0x70, 0, 0};
  ExpectSame(four, Indexed(four, {{2, 15, 7}}));
  BmpMaker eight = four;
  eight.bits = 8;
  eight.data = {15, 0, 9, 0};
  ExpectSame(eight, Indexed(eight, {{15, 0, 9}}));
}

TEST(Bmp, ReadsTrueColourWithAndWithoutBitFields) {
  BmpMaker maker{.width = 2, .height = 1, .bits = 16};
  maker.data = {0x00, 0x7C, 0xFF, 0x03};  // red; green and blue, 5 bits each
  Picture expected(2, 1, 0x0000FF);
  SetPixelV(expected.Draw(), 1, 0, 0xFFFF00);
  ExpectSame(maker, expected);

  maker.compression = 3;
  maker.masks = {0xF800, 0x07E0, 0x001F};
  maker.data = {0x00, 0xF8, 0xFF, 0x07};
  ExpectSame(maker, expected);

  maker.bits = 32;
  maker.masks = {0x3FF00000, 0x000FFC00, 0x000003FF};  // ten bits a channel
  maker.data = {0, 0, 0xF0, 0x3F, 0xFF, 0xFF, 0x0F, 0x00};
  ExpectSame(maker, expected);

  maker.compression = 0;
  maker.masks.clear();
  maker.data = {0, 0, 255, 77, 255, 255, 0, 0};  // the fourth byte means nothing
  ExpectSame(maker, expected);
}

TEST(Bmp, ReadsTrueColourUnderAllHeadersAndInBothDirections) {
  struct Form {
    unsigned bits;
    std::uint32_t compression;
    std::vector<std::uint32_t> masks;
    Bytes red, blue;  ///< one row of one pixel each
  };
  const std::vector<Form> forms = {
      {16, 0, {}, {0, 0x7C, 0, 0}, {0x1F, 0, 0, 0}},
      {24, 0, {}, {0, 0, 255, 0}, {255, 0, 0, 0}},
      {32, 0, {}, {0, 0, 255, 0}, {255, 0, 0, 9}},
      {16, 3, {0xF, 0xF0, 0xF00}, {0xF, 0xF0, 0, 0}, {0, 0xF, 0, 0}},
      {32, 3, {1, 2, 0xFFFFFFFC}, {1, 0, 0, 0}, {0xFC, 255, 255, 255}},
      {16, 6, {0xF, 0xF0, 0xF00, 0xF000}, {0xF, 0xF0, 0, 0}, {0, 0xFF, 0, 0}},
      {32, 6, {0xFF, 0, 0xFF00, 0x80000000}, {255, 0, 0, 128}, {0, 255, 77, 255}}};
  for (const Form& form : forms) {
    for (const std::uint32_t header : {12U, 16U, 40U, 52U, 56U, 64U, 108U, 124U}) {
      const bool hasFields = header >= 40 && header != 64;
      // From 56 bytes on the header always has room for the mask of what is transparent.
      if ((form.compression != 0 && !hasFields) || (form.compression == 6 && header == 52))
        continue;
      SCOPED_TRACE(testing::Message() << form.bits << " bits under a header of " << header);
      BmpMaker maker{.header = header,
                     .width = 1,
                     .height = 2,
                     .bits = form.bits,
                     .compression = form.compression,
                     .masks = form.masks,
                     .data = form.red};
      if (header >= 56 && maker.masks.size() == 3) maker.masks.push_back(0);
      maker.data.insert(maker.data.end(), form.blue.begin(), form.blue.end());
      Picture expected(1, 2, 0xFF0000);  // blue above red
      SetPixelV(expected.Draw(), 0, 1, 0x0000FF);
      ExpectSame(maker, expected);
      if (header == 12) continue;
      maker.height = -2;
      ExpectSame(maker, Transformed(expected.View(), Transform::FlipVertical));
    }
  }
}

TEST(Bmp, SeeThroughPixelsLieOnWhite) {
  BmpMaker maker{.header = 108,
                 .width = 3,
                 .height = 1,
                 .bits = 32,
                 .compression = 3,
                 .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000},
                 .data = {0, 0, 0, 0, 0, 0, 0, 128, 0, 0, 0, 255}};
  Picture expected(3, 1, kWhite);
  SetPixelV(expected.Draw(), 1, 0, 0x7F7F7F);
  SetPixelV(expected.Draw(), 2, 0, 0x000000);
  ExpectSame(maker, expected);
  maker.data = {10, 20, 30, 0, 10, 20, 30, 0, 10, 20, 30, 0};  // an unused channel
  ExpectSame(maker, Picture(3, 1, 0x0A141E));
  maker.width = 1;
  maker.height = 3;  // used in the last row only: the earlier ones are transparent
  maker.data = {10, 20, 30, 0, 10, 20, 30, 0, 10, 20, 30, 255};
  expected = Picture(1, 3, kWhite);
  SetPixelV(expected.Draw(), 0, 0, 0x0A141E);
  ExpectSame(maker, expected);
}

TEST(Bmp, ReadsRunLengths) {
  BmpMaker maker{
      .width = 6, .height = 3, .bits = 8, .compression = 1, .palette = {0, 1, 2, 3, 4, 5, 6, 7, 8}};
  maker.data = {2, 7, 0, 3, 1, 2, 3, 0,         // a run, then three single pixels and a fill byte
                0, 0, 0, 2, 2, 1, 4, 5, 0, 1};  // end of line, two right and one up, another run
  ExpectSame(maker, Indexed(maker, {{0, 0, 5, 5, 5, 5}, {0, 0, 0, 0, 0, 0}, {7, 7, 1, 2, 3, 0}}));

  maker.bits = 4;
  maker.compression = 2;
  maker.width = 5;
  maker.height = 2;
  maker.data = {3, 0x12, 0, 0, 0, 5, 0x34, 0x56, 0x70, 0, 0, 1};
  ExpectSame(maker, Indexed(maker, {{3, 4, 5, 6, 7}, {1, 2, 1, 0, 0}}));

  maker.header = 64;
  maker.bits = 24;
  maker.compression = 4;
  maker.width = 3;
  maker.height = 1;
  maker.palette.clear();
  maker.data = {2, 1, 2, 3, 0, 1};
  Picture expected(3, 1, 0x010203);
  SetPixelV(expected.Draw(), 2, 0, 0);
  ExpectSame(maker, expected);
}

}  // namespace
}  // namespace morvane
