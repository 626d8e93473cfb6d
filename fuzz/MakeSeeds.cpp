// Writes small files that the fuzzers begin with into a folder, one folder for each of them.
#include <QBuffer>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <cstdio>

#include "tests/support/BmpMaker.h"
#include "tests/support/FileBytes.h"

namespace morvane {
namespace {

class SeedFolder {
 public:
  explicit SeedFolder(const QString& path) : folder_(path) { folder_.mkpath("."); }

  void Add(const QByteArray& bytes) {
    QFile file(folder_.filePath(QString::number(++count_)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
      std::fprintf(stderr, "A seed can't be written.\n");
      std::exit(1);
    }
  }
  void Add(const Bytes& bytes) {
    Add(QByteArray(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<qsizetype>(bytes.size())));
  }

 private:
  QDir folder_;
  int count_ = 0;
};

/// Uncompressed rows with something of everything in them.
Bytes Rows(const BmpMaker& maker) {
  const auto width = static_cast<std::size_t>(maker.width);
  const auto height = static_cast<std::size_t>(std::abs(maker.height));
  Bytes rows((width * maker.bits + 31) / 32 * 4 * height);
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = static_cast<std::uint8_t>(i * 37);
  return rows;
}

std::vector<Color> Colors(unsigned bits) {
  std::vector<Color> colors;
  for (unsigned i = 0; bits <= 8 && i < 1U << bits; ++i) colors.push_back(i * 0x0A0507U & 0xFFFFFF);
  return colors;
}

void AddUncompressed(SeedFolder& folder) {
  for (const std::uint32_t header : {12U, 16U, 40U, 52U, 56U, 64U, 108U, 124U}) {
    for (const unsigned bits : {1U, 2U, 4U, 8U, 16U, 24U, 32U}) {
      BmpMaker maker{
          .header = header, .width = 11, .height = 3, .bits = bits, .palette = Colors(bits)};
      maker.data = Rows(maker);
      folder.Add(maker.Make());
      maker.height = -3;
      if (header > 12) folder.Add(maker.Make());
    }
  }
}

void AddBitFields(SeedFolder& folder) {
  const std::vector<std::uint32_t> narrow = {0x7C00, 0x3E0, 0x1F, 0x8000};
  const std::vector<std::uint32_t> wide = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
  for (const std::uint32_t header : {40U, 56U, 108U, 124U}) {
    for (const unsigned bits : {16U, 32U}) {
      for (const std::uint32_t compression : {3U, 6U}) {
        BmpMaker maker{.header = header,
                       .width = 5,
                       .height = 4,
                       .bits = bits,
                       .compression = compression,
                       .masks = bits == 16 ? narrow : wide};
        maker.data = Rows(maker);
        folder.Add(maker.Make());
      }
    }
  }
}

void AddRuns(SeedFolder& folder) {
  BmpMaker maker{.width = 6, .height = 3, .bits = 8, .compression = 1, .palette = Colors(8)};
  maker.data = {2, 7, 0, 3, 1, 2, 3, 0, 0, 0, 0, 2, 2, 1, 9, 5, 0, 1};
  folder.Add(maker.Make());
  maker.bits = 4;
  maker.compression = 2;
  maker.palette = Colors(4);
  maker.data = {3, 0x12, 0, 0, 0, 5, 0x34, 0x56, 0x70, 0, 0, 2, 1, 1, 9, 0x77, 0, 1};
  folder.Add(maker.Make());
  maker.header = 64;
  maker.bits = 24;
  maker.compression = 4;
  maker.palette.clear();
  maker.data = {2, 1, 2, 3, 0, 3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 0, 0, 2, 1, 1, 9, 9, 9, 9, 0, 1};
  folder.Add(maker.Make());
}

void AddBmps(SeedFolder folder) {
  AddUncompressed(folder);
  AddBitFields(folder);
  AddRuns(folder);
}

void AddSettings(SeedFolder folder) {
  const QByteArray full =
      "; mine\r\n[Map]\r\nDir=/maps\r\nGrid=1\r\n\r\n[Custom]\r\nDir=\" /tiles \"\r\n"
      "[Color]\r\nCanvas=16777215\r\nGrid=12632256\r\n";
  QByteArray plain = full;
  plain.replace("\r\n", "\n");
  for (const QByteArray& text : {QByteArray(), full, plain, "\xEF\xBB\xBF" + plain,
                                 QByteArray("[map]\ndir = x ; y\n[other]\na=b\n[MAP]\nGrid=2")}) {
    for (const char key : {'\0', '\1', '\2', '\3', '\4'}) {
      for (const QByteArray& value : {QByteArray(), QByteArray("/a b"), QByteArray("' '")}) {
        folder.Add(QByteArray(1, key) + static_cast<char>(value.size()) + value + text);
      }
    }
  }
}

void AddForeign(SeedFolder folder) {
  QImage image(9, 7, QImage::Format_ARGB32);
  image.fill(qRgba(200, 100, 50, 128));
  image.setPixel(3, 3, qRgba(1, 2, 3, 255));
  for (const QByteArray& format : QImageWriter::supportedImageFormats()) {
    for (const auto depth : {QImage::Format_ARGB32, QImage::Format_Indexed8, QImage::Format_Mono}) {
      QBuffer buffer;
      if (QImageWriter(&buffer, format).write(image.convertToFormat(depth)))
        folder.Add(buffer.data());
    }
  }
  // A moving picture of one grey pixel: Qt reads this format but doesn't write it.
  folder.Add(Bytes{'G', 'I', 'F', '8', '9', 'a',  1, 0, 1, 0,   0x80, 0, 0,   9, 9,
                   9,   250, 250, 250, '!', 0xF9, 4, 1, 0, 0,   0,    0, ',', 0, 0,
                   0,   0,   1,   0,   1,   0,    0, 2, 2, 'D', 1,    0, ';'});
}

}  // namespace
}  // namespace morvane

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "Usage: make_seeds FOLDER\n");
    return 2;
  }
  const QString top = QString::fromLocal8Bit(argv[1]);
  morvane::AddBmps(morvane::SeedFolder(top + "/fuzz_bmp"));
  morvane::AddSettings(morvane::SeedFolder(top + "/fuzz_settings"));
  morvane::AddForeign(morvane::SeedFolder(top + "/fuzz_custom_tile"));
  return 0;
}
