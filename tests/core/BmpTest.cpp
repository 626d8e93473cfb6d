#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "document/bmp/Bmp.h"
#include "tests/support/BmpMaker.h"
#include "tests/support/Pictures.h"

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
      {.bits = 32, .masks = {1, 2, 0xFFFFFFFC}, .data = {1, 0, 0, 0, 0xFC, 255, 255, 255}},
      {.bits = 16, .masks = {0xF, 0xF0, 0xF00, 0xF000}, .data = {0xF, 0xF0, 0, 0, 0, 0xFF, 0, 0}},
      {.bits = 32, .masks = {0xF, 0, 0xF0, 0x100}, .data = {15, 1, 9, 0, 240, 1, 7, 0}}};
  for (BmpMaker maker : forms) {
    for (const std::uint32_t header : {12U, 16U, 40U, 52U, 56U, 64U, 108U, 124U}) {
      SCOPED_TRACE(testing::Message() << maker.bits << " bits, header of " << header);
      if (!maker.masks.empty() && (header < 40 || header == 64)) continue;
      maker.header = header;
      maker.height = 2;
      ExpectPixels(maker.Make(), {kBlue, kRed});
      maker.height = -2;
      if (header != 12) ExpectPixels(maker.Make(), {kRed, kBlue});
    }
  }
  ExpectPixels(BmpMaker{.bits = 8, .palette = {9}, .data = Bytes(4)}.Make(), {9});
  const BmpMaker wide{.width = 9, .bits = 2, .palette = {10, 11, 12, 13}, .data = {27, 228, 64, 0}};
  ExpectPixels(wide.Make(), {10, 11, 12, 13, 13, 12, 11, 10, 11});
}

TEST(Bmp, BlendsTransparentPixelsWithWhite) {
  BmpMaker maker{.header = 56, .width = 2, .height = 2, .bits = 32};
  maker.masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
  maker.data = {0, 0, 0, 0, 100, 0, 0, 78, 0, 0, 0, 255, 0, 0, 0, 254};
  ExpectPixels(maker.Make(), {0, 0x010101, kWhite, 0xD0B1B1});
  maker.data = {1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3, 0};  // an unused channel
  ExpectPixels(maker.Make(), std::vector<Color>(4, 0x010203));
  maker.data.back() = 255;  // used at the end: all before is transparent
  ExpectPixels(maker.Make(), {kWhite, 0x010203, kWhite, kWhite});
  // Ten bits per channel, and two of alpha.
  const std::vector<std::uint32_t> deep = {0x3FF00000, 0xFFC00, 0x3FF, 0xC0000000};
  ExpectPixels(BmpMaker{.bits = 32, .masks = deep, .data = {255, 255, 15, 96}}.Make(), {0xFFFFD5});
}

TEST(Bmp, ReadsRunLengthsThatEndAnywhere) {
  struct Row {
    Bytes data;
    std::vector<Color> colors;
    unsigned bits = 8;
    bool isDamaged = false;
  };
  // The palette is 7, 1, 2, and what lies beyond it is 0.
  const Row rows[] = {
      {{255, 1, 255, 2, 0, 1}, {7, 7, 7, 1, 1, 1}, 8, true},      // beyond the row
      {{0, 0, 0, 0, 255, 1, 0, 1}, {7, 7, 7, 7, 7, 7}, 8, true},  // above the top row
      {{0, 2, 9, 0, 0, 1}, {7, 7, 7, 7, 7, 7}, 8, true},          // jumps outside
      {{0, 2, 0, 3, 0, 1}, {7, 7, 7, 7, 7, 7}, 8, true},
      {{0, 2, 0, 2, 0, 1}, {7, 7, 7, 7, 7, 7}},  // jumps to the end, and inside
      {{0, 2, 1, 1, 1, 2, 0, 1}, {7, 2, 7, 7, 7, 7}},
      {{0, 3, 1, 2, 1, 9, 0, 1}, {7, 7, 7, 1, 2, 1}},                 // with padding
      {{0, 5, 1, 2, 1, 2, 2, 0, 0, 1}, {7, 7, 7, 1, 2, 1}, 8, true},  // beyond the row
      {{3, 1, 0, 0, 3, 2, 0, 0, 0, 0}, {2, 2, 2, 1, 1, 1}},           // no end mark
      {{3, 3, 0, 1}, {7, 7, 7, 0, 0, 0}, 8, true},
      {{0, 3, 1, 9, 1, 0, 0, 1}, {7, 7, 7, 1, 0, 1}, 8, true},
      {{3, 0x12, 0, 0, 0, 3, 0x20, 0x10, 0, 1}, {2, 7, 1, 1, 2, 1}, 4},
      {{4, 0x12, 0, 0, 0, 5, 0x21, 0x21, 0, 0, 0, 1}, {2, 1, 2, 1, 2, 1}, 4, true},
      {{4, 0x12, 0, 1}, {7, 7, 7, 1, 2, 1}, 4},  // one too many fills up the byte
      {{2, 0, 0, 5, 0, 0, 0, 3, 0, 0, 6, 0, 0, 5, 0, 0, 4, 0, 0, 1}, {6, 5, 4, 5, 5, 0}, 24}};
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    BmpMaker maker{.header = 64, .width = 3, .height = 2, .bits = row.bits};
    maker.compression = row.bits == 24 ? 4 : 8 / row.bits;
    maker.palette = {7, 1, 2};
    maker.data = row.data;
    ExpectPixels(maker.Make(), row.colors, row.isDamaged);
  }
}

TEST(Bmp, RunsThatCannotFillALargePictureAreRefused) {
  const std::vector<std::tuple<int, std::size_t, bool>> rows = {
      {256, 2, true}, {257, 8223, false}, {257, 8224, true}, {25'000, 800'000, false}};
  for (const auto& [height, bytes, isRead] : rows) {
    BmpMaker maker{.width = 4096, .height = height, .bits = 8, .compression = 1, .data = {0, 1}};
    maker.data.resize(bytes);
    EXPECT_EQ(ReadBmp(maker.Make()).Ok(), isRead) << height << " rows in " << bytes;
  }
}

TEST(Bmp, WritesExactlyThisFile) {
  const Picture picture(1, 2, 0x030201);  // red 1, green 2, blue 3
  const Bytes expected = {'B', 'M', 62, 0, 0, 0, 0,    0,  0, 0, 54,   0,  0,  0, 40, 0,
                          0,   0,   1,  0, 0, 0, 2,    0,  0, 0, 1,    0,  24, 0, 0,  0,
                          0,   0,   8,  0, 0, 0, 0xC4, 14, 0, 0, 0xC4, 14, 0,  0, 0,  0,
                          0,   0,   0,  0, 0, 0, 3,    2,  1, 0, 3,    2,  1,  0};
  EXPECT_EQ(WriteBmp(picture.View()), expected);
}

TEST(Bmp, ReadsBackWhatItWritesInPiecesOfAnySize) {
  for (const int width : {1, 6, 7, 70}) {
    const Picture picture = Speckled(width, 5);
    Bytes whole = WriteBmp(picture.View());
    BmpEncoder file(picture.View());
    for (std::size_t size = 1; size <= 70; ++size) {
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

/// A file whose end can't be read.
struct BrokenFile : MemorySource {
  using MemorySource::MemorySource;
  Failure ReadAt(std::size_t place, std::span<std::uint8_t> buffer) override {
    if (place + buffer.size() > readable) return "Input/output error";
    return MemorySource::ReadAt(place, buffer);
  }
  std::size_t readable = 0;
};

TEST(MalformedBmp, IsRefusedAtEveryLengthAndIfAReadFails) {
  const Bytes runs = {4, 1, 0, 0, 0, 2, 0, 0, 0, 4, 0, 1, 2, 1, 0, 1};
  const BmpMaker maker{.width = 4, .height = 2, .bits = 8, .compression = 1, .data = runs};
  Bytes file = maker.Make();
  ASSERT_TRUE(ReadBmp(file).Ok());
  while (!file.empty()) {
    file.pop_back();
    ASSERT_FALSE(ReadBmp(file).Ok()) << file.size();
  }
  file = BmpMaker{.bits = 8, .compression = 1, .data = Bytes(100'000)}.Make();
  for (const std::size_t readable : {50'000, 90'000}) {  // in the first read and after it
    BrokenFile broken(file);
    broken.readable = readable;
    EXPECT_EQ(ReadBmp(broken).Reason(), "Input/output error");
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
  // Sizes of the file and of the pixels, resolution, number of colours: many programs get them
  // wrong.
  const std::vector<Color> pixels(6, 0x070707);
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
