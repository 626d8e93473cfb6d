#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "document/bmp/Bmp.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/FileBytes.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

constexpr Color kRed = 0x0000FF;
constexpr Color kBlue = 0xFF0000;
constexpr std::uint32_t kAll = 0xFFFFFFFF;

/// Expects these pixels, upper row first; without any, that the file is refused.
void ExpectPixels(const Bytes& file, const std::vector<Color>& expected, bool isDamaged = false) {
  MemorySource source(file);
  Result<LoadedPicture> read = ReadBmp(source);
  const PictureView picture = read.Ok() ? read.Value().picture.View() : PictureView();
  std::vector<Color> colors(static_cast<std::size_t>(picture.width) * picture.height);
  for (int i = 0; i < std::ssize(colors); ++i) {
    colors[i] = GetPixel(picture, i % picture.width, i / picture.width);
  }
  EXPECT_EQ(colors, expected);
  EXPECT_EQ(read.Ok() && read.Value().isDamaged, isDamaged);
}

BmpMaker Fields(unsigned bits, const std::vector<std::uint32_t>& masks, const Bytes& data) {
  const std::uint32_t compression = masks.size() == 3 ? 3 : 6;
  return {.bits = bits, .compression = compression, .masks = masks, .data = data};
}

TEST(Bmp, ReadsEveryDepthUnderEveryHeader) {
  // A blue pixel above a red one. The file begins with the lower row.
  const BmpMaker forms[] = {
      {.bits = 1, .palette = {kBlue, kRed}, .data = {0x80, 0, 0, 0, 0, 0, 0, 0}},
      {.bits = 2, .palette = {1, kBlue, 2, kRed}, .data = {0xC0, 0, 0, 0, 0x40, 0, 0, 0}},
      {.bits = 4, .palette = {kBlue, 1, 2, 3, kRed}, .data = {0x40, 0, 0, 0, 0x0F, 0, 0, 0}},
      {.bits = 8, .palette = {1, 2, 3, kRed, kBlue}, .data = {3, 0, 0, 0, 4, 0, 0, 0}},
      {.bits = 16, .data = {0, 0x7C, 0, 0, 0x1F, 0, 0, 0}},
      {.bits = 24, .data = {0, 0, 255, 0, 255, 0, 0, 0}},
      {.bits = 32, .data = {0, 0, 255, 0, 255, 0, 0, 9}},
      Fields(16, {0xF, 0xF0, 0xF00}, {0xF, 0xF0, 0, 0, 0, 0xF, 0, 0}),
      Fields(32, {1, 2, 0xFFFFFFFC}, {1, 0, 0, 0, 0xFC, 255, 255, 255}),
      Fields(16, {0xF, 0xF0, 0xF00, 0xF000}, {0xF, 0xF0, 0, 0, 0, 0xFF, 0, 0}),
      Fields(32, {0xFF, 0, 0xFF00, 0x80000000}, {255, 0, 0, 128, 0, 255, 77, 255})};
  for (BmpMaker maker : forms) {
    for (const std::uint32_t header : {12U, 16U, 40U, 52U, 56U, 64U, 108U, 124U}) {
      SCOPED_TRACE(testing::Message() << maker.bits << " bits, header of " << header);
      if (maker.compression != 0 && (header < 40 || header == 64)) continue;
      maker.header = header;
      maker.height = 2;
      ExpectPixels(maker.Make(), {kBlue, kRed});
      maker.height = -2;
      if (header != 12) ExpectPixels(maker.Make(), {kRed, kBlue});
    }
  }
}

TEST(Bmp, ReadsRowsOfManyPixels) {
  const auto indexed = [](unsigned bits, int width, const Bytes& data) {
    return BmpMaker{.width = width, .bits = bits, .palette = {10, 11, 12, 13}, .data = data}.Make();
  };
  ExpectPixels(indexed(1, 10, {180, 64, 0, 0}), {11, 10, 11, 11, 10, 11, 10, 10, 10, 11});
  ExpectPixels(indexed(2, 9, {27, 228, 64, 0}), {10, 11, 12, 13, 13, 12, 11, 10, 11});
  ExpectPixels(indexed(4, 3, {0x23, 0x10, 0, 0}), {12, 13, 11});
}

TEST(Bmp, BlendsTransparentPixelsWithWhite) {
  BmpMaker maker = Fields(32, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}, {});
  maker.header = 56;
  maker.compression = 3;
  maker.width = 3;
  maker.data = {0, 0, 0, 0, 100, 0, 0, 78, 0, 0, 0, 255};
  ExpectPixels(maker.Make(), {kWhite, 0xD0B1B1, 0});
  maker.data = {10, 20, 30, 0, 10, 20, 30, 0, 10, 20, 30, 0};  // an unused channel
  ExpectPixels(maker.Make(), {0x0A141E, 0x0A141E, 0x0A141E});
  maker.width = 1;
  maker.height = 3;
  maker.data.back() = 255;  // used in one row: the other rows are transparent
  ExpectPixels(maker.Make(), {0x0A141E, kWhite, kWhite});
  // Ten bits per channel, and none of alpha.
  const Bytes data = {0xFF, 0xFF, 0x0F, 0x20};
  ExpectPixels(Fields(32, {0x3FF00000, 0xFFC00, 0x3FF, 0}, data).Make(), {0xFFFF80});
}

TEST(Bmp, ReadsRunLengthsThatEndAnywhere) {
  struct Row {
    Bytes data;
    std::string pixels;  ///< indices, '9' beyond the palette
    bool isDamaged = false;
    unsigned bits = 8;
  };
  const Row rows[] = {
      {{255, 1, 255, 2, 0, 1}, "000111", true},        // beyond the row
      {{0, 0, 0, 0, 255, 1, 0, 1}, "000000", true},    // above the top row
      {{0, 2, 255, 255, 3, 1, 0, 1}, "000000", true},  // jumps outside
      {{0, 2, 9, 0, 0, 1}, "000000", true},
      {{0, 2, 0, 3, 0, 1}, "000000", true},
      {{0, 2, 0, 2, 0, 1}, "000000"},  // jumps to the end, and inside
      {{0, 2, 1, 1, 1, 2, 0, 1}, "020000"},
      {{0, 3, 1, 2, 1, 9, 0, 1}, "000121"},              // with padding
      {{0, 5, 1, 2, 1, 2, 2, 0, 0, 1}, "000121", true},  // beyond the row
      {{3, 1, 0, 0, 3, 2, 0, 0, 0, 0}, "222111"},        // no end mark
      {{3, 9, 0, 1}, "000999", true},
      {{0, 3, 1, 9, 1, 0, 0, 1}, "000191", true},
      {{3, 0x12, 0, 0, 0, 3, 0x20, 0x10, 0, 1}, "201121", false, 4},
      {{4, 0x12, 0, 0, 0, 5, 0x21, 0x21, 0, 0, 0, 1}, "212121", true, 4},
      {{4, 0x12, 0, 1}, "000121", false, 4},  // one too many fills up the byte
      {{2, 0, 0, '1', 0, 0, 0, 3, 0, 0, '2', 0, 0, '1', 0, 0, '0', 0, 0, 1}, "210119", false, 24}};
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    BmpMaker maker{.header = 64, .width = 3, .height = 2, .bits = row.bits};
    maker.compression = row.bits == 24 ? 4 : 8 / row.bits;
    maker.palette = {'0', '1', '2'};
    maker.data = row.data;
    std::vector<Color> colors(row.pixels.begin(), row.pixels.end());
    std::replace(colors.begin(), colors.end(), Color{'9'}, Color{0});
    ExpectPixels(maker.Make(), colors, row.isDamaged);
  }
}

TEST(Bmp, RunsThatCannotFillALargePictureAreRefused) {
  for (const auto& [height, bytes, isRead] : {std::tuple(256, 2, true),
                                              {257, 8223, false},
                                              {257, 8224, true},
                                              {25'000, 800'000, false}}) {
    BmpMaker maker{.width = 4096, .height = height, .bits = 8, .compression = 1, .data = {0, 1}};
    maker.data.resize(static_cast<std::size_t>(bytes));
    EXPECT_EQ(ReadBmp(maker.Make()).Ok(), isRead) << height << " rows in " << bytes;
  }
}

TEST(Bmp, WritesExactlyThisFile) {
  Picture picture(2, 2, kWhite);
  SetPixelV(picture.Draw(), 0, 0, 0x030201);  // red 1, green 2, blue 3
  const Bytes expected = {'B',  'M',  70,  0,   0, 0, 0,  0, 0, 0,   54,   0,    0,   0,
                          40,   0,    0,   0,   2, 0, 0,  0, 2, 0,   0,    0,    1,   0,
                          24,   0,    0,   0,   0, 0, 16, 0, 0, 0,   0xC4, 0x0E, 0,   0,
                          0xC4, 0x0E, 0,   0,   0, 0, 0,  0, 0, 0,   0,    0,    255, 255,
                          255,  255,  255, 255, 0, 0, 3,  2, 1, 255, 255,  255,  0,   0};
  EXPECT_EQ(WriteBmp(picture.View()), expected);
}

TEST(Bmp, ReadsBackWhatItWritesInPiecesOfAnySize) {
  for (const int width : {1, 6, 7, 70, 701}) {
    const Picture picture = Speckled(width, width > 100 ? 411 : 5);
    Bytes whole = WriteBmp(picture.View());
    EXPECT_EQ(ReadBmp(whole).Value(), picture);
    BmpEncoder file(picture.View());
    for (std::size_t size = 1; size <= 70 && width < 100; ++size) {
      Bytes pieces(whole.size());
      for (std::size_t place = 0; place < whole.size(); place += size) {
        const std::size_t count = std::min(size, whole.size() - place);
        ASSERT_EQ(file.ReadAt(place, std::span(pieces).subspan(place, count)), "");
      }
      ASSERT_EQ(pieces, whole) << width << " in pieces of " << size;
    }
    constexpr std::uint32_t kGap = 100'000;  // before the pixels
    whole.insert(whole.begin() + 54, kGap, 0);
    Write32(whole, 10, 54 + kGap);
    EXPECT_EQ(ReadBmp(whole).Value(), picture);
  }
}

TEST(MalformedBmp, IsRefusedAtEveryLength) {
  const Bytes runs = {4, 1, 0, 0, 0, 2, 0, 0, 0, 4, 0, 1, 2, 1, 0, 1};
  const BmpMaker maker{.width = 4, .height = 2, .bits = 8, .compression = 1, .data = runs};
  for (const Bytes& whole : {WriteBmp(Speckled(3, 2).View()), maker.Make()}) {
    ASSERT_TRUE(ReadBmp(whole).Ok());
    for (std::size_t size = 0; size < whole.size(); ++size) {
      ASSERT_FALSE(ReadBmp(Bytes(whole.data(), whole.data() + size)).Ok()) << size;
    }
  }
}

TEST(MalformedBmp, FieldsAtTheirExtremes) {
  // A file of 3 x 2 pixels of 24 bits: 54 bytes of headers and 24 of pixels.
  const Bytes sound = BmpMaker{.width = 3, .height = 2, .data = Bytes(24, 7)}.Make();
  const auto expect = [&](std::size_t at, std::uint32_t value, const std::vector<Color>& pixels) {
    SCOPED_TRACE(testing::Message() << value << " at " << at);
    Bytes file = sound;
    Write32(file, at, value);
    ExpectPixels(file, pixels);
  };
  constexpr std::uint32_t kTop = 1U << 31U;
  const std::map<std::size_t, std::vector<std::uint32_t>> refused = {
      {10, {0, 53, 55, 78, kTop, kAll}},                   // offset of the pixels
      {14, {0, 11, 13, 65, 2295, kAll}},                   // size of the header
      {18, {0, 0xFFFFFFFD, kTop, kTop + 1, kTop - 1}},     // width
      {22, {0, 3, 0xFFFFFFFD, kTop, kTop + 1, kTop - 1}},  // height
      {28, {0, 7}},                                        // bits
      {30, {1, 5, 7, kAll}}};                              // compression
  for (const auto& [at, values] : refused) {
    for (const std::uint32_t value : values) expect(at, value, {});
  }
  const std::vector<Color> pixels(6, 0x070707);
  expect(26, 24U << 16U, pixels);  // no planes
  // Sizes of the file and of the pixels, resolution, number of colours: many programs get them
  // wrong.
  for (const std::size_t at : {2, 34, 38, 42, 46, 50}) expect(at, kAll, pixels);
}

TEST(MalformedBmp, PalettesTooShortOrTooLong) {
  for (const std::uint32_t count : {0U, 1U, 2U, 3U, 256U, kAll}) {  // according to the header
    for (const std::uint32_t entries : {0U, 1U, 2U, 3U, 300U}) {    // in the file
      SCOPED_TRACE(testing::Message() << count << " of " << entries);
      BmpMaker maker{.width = 2, .bits = 8, .data = {0, 2, 0, 0}};
      for (Color color = 1; color <= entries; ++color) maker.palette.push_back(color);
      Bytes file = maker.Make();
      Write32(file, 46, count);
      const Color known = count == 0 ? entries : std::min(count, entries);  // others are black
      ExpectPixels(file, {known > 0 ? 1U : 0U, known > 2 ? 3U : 0U}, known <= 2);
    }
  }
}

}  // namespace
}  // namespace morvane
