#include <gtest/gtest.h>

#include "document/bmp/Bmp.h"
#include "document/io/LittleEndian.h"
#include "document/picture/Transform.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/FileBytes.h"
#include "tests/support/Sample.h"

namespace morvane {
namespace {

Result<LoadedPicture> Load(const Bytes& bytes) {
  MemorySource file(bytes);
  return ReadBmp(file);
}

/// Expects these pixels, upper row first, also from the same file with its rows in reverse order.
void ExpectPixels(BmpMaker maker, const std::vector<Color>& colors) {
  SCOPED_TRACE(testing::Message() << maker.bits << " bits, header of " << maker.header);
  Picture expected(maker.width, std::abs(maker.height));
  for (int i = 0; i < expected.Width() * expected.Height(); ++i) {
    SetPixelV(expected.Draw(), i % expected.Width(), i / expected.Width(), colors[i]);
  }
  Result<LoadedPicture> read = Load(maker.Make());
  ASSERT_TRUE(read.Ok()) << read.Reason();
  EXPECT_EQ(Difference(read.Value().picture, expected), "");
  EXPECT_FALSE(read.Value().isDamaged);
  const bool hasRuns = maker.compression == 1 || maker.compression == 2 || maker.compression == 4;
  if (maker.height < 0 || maker.header == 12 || hasRuns) return;
  FlipInPlace(expected.Draw(), Transform::FlipVertical);
  maker.height = -maker.height;
  EXPECT_EQ(Difference(Load(maker.Make()).Value().picture, expected), "");
}

constexpr Color kRed = 0x0000FF;
constexpr Color kBlue = 0xFF0000;

TEST(Bmp, ReadsEveryDepthUnderEveryHeader) {
  struct Form {
    unsigned bits;
    std::uint32_t compression;
    std::vector<std::uint32_t> masks;
    std::vector<Color> palette;
    Bytes red, blue;  ///< a row with one pixel
  };
  const std::vector<Form> forms = {
      {1, 0, {}, {kBlue, kRed}, {0x80, 0, 0, 0}, {0, 0, 0, 0}},
      {2, 0, {}, {1, kBlue, 2, kRed}, {0xC0, 0, 0, 0}, {0x40, 0, 0, 0}},
      {4, 0, {}, {kBlue, 1, 2, 3, kRed}, {0x40, 0, 0, 0}, {0x0F, 0, 0, 0}},
      {8, 0, {}, {1, 2, 3, 4, 5, 6, 7, 8, kRed, kBlue}, {8, 0, 0, 0}, {9, 0, 0, 0}},
      {16, 0, {}, {}, {0, 0x7C, 0, 0}, {0x1F, 0, 0, 0}},
      {24, 0, {}, {}, {0, 0, 255, 0}, {255, 0, 0, 0}},
      {32, 0, {}, {}, {0, 0, 255, 0}, {255, 0, 0, 9}},
      {16, 3, {0xF, 0xF0, 0xF00}, {}, {0xF, 0xF0, 0, 0}, {0, 0xF, 0, 0}},
      {32, 3, {1, 2, 0xFFFFFFFC}, {}, {1, 0, 0, 0}, {0xFC, 255, 255, 255}},
      {16, 6, {0xF, 0xF0, 0xF00, 0xF000}, {}, {0xF, 0xF0, 0, 0}, {0, 0xFF, 0, 0}},
      {32, 6, {0xFF, 0, 0xFF00, 0x80000000}, {}, {255, 0, 0, 128}, {0, 255, 77, 255}}};
  for (const Form& form : forms) {
    for (const std::uint32_t header : {12U, 16U, 40U, 52U, 56U, 64U, 108U, 124U}) {
      const bool hasFields = header >= 40 && header != 64;
      if (form.compression != 0 && !hasFields) continue;
      if (form.compression == 6 && header == 52) continue;  // it has no room for the fourth mask
      if (!form.palette.empty() && (header == 52 || header == 56)) continue;
      BmpMaker maker{.header = header, .width = 1, .height = 2, .bits = form.bits};
      maker.compression = form.compression;
      maker.masks = form.masks;
      maker.palette = form.palette;
      maker.data = form.red;
      if (header >= 56 && maker.masks.size() == 3) maker.masks.push_back(0);
      maker.data.insert(maker.data.end(), form.blue.begin(), form.blue.end());
      ExpectPixels(maker, {kBlue, kRed});
    }
  }
}

BmpMaker Indexed(unsigned bits, int width, int height, const Bytes& data) {
  BmpMaker maker{.width = width, .height = height, .bits = bits};
  maker.palette = {10, 11, 12, 13, 14, 15, 16, 17};
  maker.data = data;
  return maker;
}

BmpMaker RunLengths(unsigned bits, int width, int height, const Bytes& data) {
  BmpMaker maker = Indexed(bits, width, height, data);
  maker.compression = bits == 8 ? 1 : 2;
  return maker;
}

TEST(Bmp, ReadsRowsOfManyPixels) {
  ExpectPixels(Indexed(2, 9, 1, {27, 228, 64, 0}), {10, 11, 12, 13, 13, 12, 11, 10, 11});
  ExpectPixels(Indexed(1, 10, 1, {180, 64, 0, 0}), {11, 10, 11, 11, 10, 11, 10, 10, 10, 11});
  ExpectPixels(Indexed(4, 3, 1, {0x23, 0x10, 0, 0}), {12, 13, 11});
}

TEST(Bmp, BlendsTransparentPixelsWithWhite) {
  BmpMaker maker{.header = 108, .width = 3, .bits = 32, .compression = 3};
  maker.masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
  maker.data = {0, 0, 0, 0, 0, 0, 0, 128, 0, 0, 0, 255};
  ExpectPixels(maker, {kWhite, 0x7F7F7F, 0});
  maker.data = {10, 20, 30, 0, 10, 20, 30, 0, 10, 20, 30, 0};  // an unused channel
  ExpectPixels(maker, {0x0A141E, 0x0A141E, 0x0A141E});
  maker.width = 1;
  maker.height = 3;
  maker.data.back() = 255;  // used in one row: the other rows are transparent
  ExpectPixels(maker, {0x0A141E, kWhite, kWhite});
  maker.width = maker.height = 1;
  maker.masks = {0x3FF00000, 0x000FFC00, 0x000003FF, 0};  // ten bits per channel
  maker.data = {0xFF, 0xFF, 0x0F, 0x20};
  ExpectPixels(maker, {0xFFFF80});
}

TEST(Bmp, ReadsRunLengths) {
  // A run, three single pixels and padding, end of line, two right and one up, another run.
  const Bytes bytes = {2, 7, 0, 3, 1, 2, 3, 0, 0, 0, 0, 2, 2, 1, 4, 5, 0, 1};
  ExpectPixels(RunLengths(8, 6, 3, bytes),
               {10, 10, 15, 15, 15, 15, 10, 10, 10, 10, 10, 10, 17, 17, 11, 12, 13, 10});
  ExpectPixels(RunLengths(4, 5, 2, {3, 0x12, 0, 0, 0, 5, 0x34, 0x56, 0x70, 0, 0, 1}),
               {13, 14, 15, 16, 17, 11, 12, 11, 10, 10});
  BmpMaker maker{.header = 64, .width = 3, .bits = 24, .compression = 4};
  maker.data = {2, 1, 2, 3, 0, 1};
  ExpectPixels(maker, {0x010203, 0x010203, 0});
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
  const BmpMaker rows{.width = 3, .height = 2, .data = Bytes(24, 7)};
  const BmpMaker runs = RunLengths(8, 4, 2, {4, 1, 0, 0, 0, 4, 0, 1, 2, 1, 0, 1});
  for (const BmpMaker& maker : {rows, runs}) {
    const Bytes whole = maker.Make();
    ASSERT_TRUE(ReadBmp(whole).Ok());
    for (std::size_t size = 0; size < whole.size() - 2; ++size) {
      Result<Picture> read = ReadBmp(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)));
      ASSERT_FALSE(read.Ok()) << size;
      ASSERT_FALSE(read.Reason().empty());
    }
  }
}

TEST(MalformedBmp, FieldsAtTheirExtremes) {
  constexpr std::uint32_t kAll = 0xFFFFFFFF;
  struct Row {
    std::size_t at;
    std::uint32_t value;
    bool isRead;
  };
  // A file of 3 x 2 pixels of 24 bits: 54 bytes of headers and 24 of pixels.
  const Bytes sound = BmpMaker{.width = 3, .height = 2, .data = Bytes(24, 7)}.Make();
  std::vector<Row> rows = {
      {2, 0, true},      {2, kAll, true},  // size of the file, which many programs get wrong
      {10, 0, false},    {10, 53, false},        {10, 55, false},  // offset of the pixels
      {10, 78, false},   {10, 1U << 31U, false}, {10, kAll, false},
      {14, 0, false},    {14, 11, false},        {14, 13, false},  // size of the header
      {14, 65, false},   {14, 2295, false},      {14, kAll, false},
      {22, 3, false},    {26, 24U << 16U, true},                    // height; planes
      {28, 0, false},    {28, 7, false},                            // bits
      {30, 1, false},    {30, 5, false},         {30, 7, false},    // compression
      {30, kAll, false}, {34, 0, true},          {34, kAll, true},  // size of the pixels
      {38, kAll, true},  {42, 1U << 31U, true},                     // resolution
      {46, kAll, true},  {50, kAll, true}};  // number of colours, and of important ones
  for (const std::uint32_t side : {0U, 0xFFFFFFFDU, 1U << 31U, (1U << 31U) + 1, (1U << 31U) - 1}) {
    rows.insert(rows.end(), {{18, side, false}, {22, side, false}});
  }
  for (const Row& row : rows) {
    Bytes file = sound;
    Write32(file, row.at, row.value);
    Result<Picture> read = ReadBmp(file);
    ASSERT_EQ(read.Ok(), row.isRead) << row.value << " at " << row.at;
    EXPECT_TRUE(!row.isRead || read.Value() == ReadBmp(sound).Value()) << row.value;
  }
}

TEST(MalformedBmp, PalettesTooShortOrTooLong) {
  struct Row {
    std::uint32_t count;  ///< according to the header
    Color entries;        ///< in the file
    Color first, second;  ///< pixels of index 0 and 2
  };
  for (const Row& row :
       {Row{0, 3, 1, 3}, Row{0xFFFFFFFF, 3, 1, 3}, Row{3, 3, 1, 3}, Row{2, 3, 1, 0},
        Row{256, 2, 1, 0}, Row{1, 1, 1, 0}, Row{0, 0, 0, 0}, Row{300, 300, 1, 3}}) {
    BmpMaker maker{.width = 2, .height = 1, .bits = 8, .data = {0, 2, 0, 0}};
    for (Color color = 1; color <= row.entries; ++color) maker.palette.push_back(color);
    Bytes bytes = maker.Make();
    Write32(bytes, 46, row.count);
    Result<LoadedPicture> read = Load(bytes);
    ASSERT_TRUE(read.Ok()) << row.count << " of " << row.entries << ": " << read.Reason();
    EXPECT_EQ(GetPixel(read.Value().picture.View(), 0, 0), row.first) << row.count;
    EXPECT_EQ(GetPixel(read.Value().picture.View(), 1, 0), row.second) << row.count;
    EXPECT_EQ(read.Value().isDamaged, row.second == 0) << row.count;
  }
}

TEST(MalformedBmp, RunsThatStopShortOrOverrun) {
  struct Row {
    Bytes data;
    std::string pixels;  ///< indices, upper row first; empty if the file is refused
    bool isDamaged = false;
  };
  const std::vector<Row> rows = {
      {{3, 1, 0, 0, 3, 2, 0, 1}, "222111"},
      {{0, 1}, "000000"},
      {{255, 1, 255, 2, 0, 1}, "000111", true},        // beyond the end of the row
      {{0, 0, 0, 0, 255, 1, 0, 1}, "000000", true},    // above the top row
      {{0, 2, 255, 255, 3, 1, 0, 1}, "000000", true},  // a jump out of the picture
      {{0, 2, 9, 0, 0, 1}, "000000", true},
      {{0, 2, 1, 1, 1, 2, 0, 1}, "020000"},              // a jump inside
      {{0, 3, 1, 2, 1, 9, 0, 1}, "000121"},              // padding isn't a pixel
      {{0, 5, 1, 2, 1, 2, 2, 0, 0, 1}, "000121", true},  // single pixels beyond the row
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
    BmpMaker maker = RunLengths(8, 3, 2, row.data);
    maker.palette = {'0', '1', '2'};
    Result<LoadedPicture> read = Load(maker.Make());
    std::string pixels;
    for (int i = 0; read.Ok() && i < 6; ++i) {
      const Color color = GetPixel(read.Value().picture.View(), i % 3, i / 3);
      pixels += color == 0 ? '9' : static_cast<char>(color);
    }
    EXPECT_EQ(pixels, row.pixels) << "row " << &row - rows.data();
    EXPECT_EQ(read.Ok() && read.Value().isDamaged, row.isDamaged) << "row " << &row - rows.data();
  }
  // Runs that can't fill the picture are refused before memory is allocated.
  for (const auto& [side, isRead] : {std::pair(900, true), {9'000, false}, {60'000, false}}) {
    EXPECT_EQ(ReadBmp(RunLengths(8, side, side, {0, 1}).Make()).Ok(), isRead) << side;
  }
}

}  // namespace
}  // namespace morvane
