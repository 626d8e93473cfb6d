// Writes the files that the fuzzers start from, into one folder for each fuzzer.
#include <QBuffer>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>

#include "tests/support/BmpMaker.h"

namespace morvane {
namespace {

class SeedFolder {
 public:
  explicit SeedFolder(const QString& path) : folder_(path) { folder_.mkpath("."); }

  void Add(const QByteArray& bytes) {
    QFile file(folder_.filePath(QString::number(++count_)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
      qFatal("A seed can't be written.");
    }
  }

 private:
  QDir folder_;
  int count_ = 0;
};

/// BMP files of every depth and compression under every header.
void AddBmps(SeedFolder folder) {
  for (const std::uint32_t header : {12U, 16U, 40U, 52U, 56U, 64U, 108U, 124U}) {
    for (const unsigned bits : {1U, 2U, 4U, 8U, 16U, 24U, 32U}) {
      for (const std::uint32_t compression : {0U, 1U, 2U, 3U, 4U, 6U}) {
        BmpMaker maker{.header = header, .width = 11, .height = 3};
        maker.bits = bits;
        maker.compression = compression;
        if (compression == 3) maker.masks = {0x7C00, 0x3E0, 0x1F};
        if (compression == 6) maker.masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
        for (Color i = 0; bits <= 8 && i < 1U << bits; ++i) maker.palette.push_back(i * 0x0A0507U);
        maker.data = {3, 1, 0, 4, 1, 2, 3, 4, 0, 0, 0, 2, 2, 1, 9, 5, 0, 1};
        maker.data.resize((maker.width * bits + 31) / 32 * 4 * 3, 0x37);
        const Bytes file = maker.Make();
        folder.Add({reinterpret_cast<const char*>(file.data()), std::ssize(file)});
      }
    }
  }
}

void AddSettings(SeedFolder folder) {
  const QByteArray text =
      "; mine\n[Map]\nDir=/maps\nGrid=1\n\n[Custom]\nDir=\" /tiles \"\n[color]\n canvas = 1 ; "
      "old\n";
  QByteArray windows = text;
  windows.replace("\n", "\r\n");
  for (const QByteArray& file : {QByteArray(), text, windows, "\xEF\xBB\xBF" + text}) {
    for (const char key : {'\0', '\1', '\2', '\3', '\4'}) {
      folder.Add(QByteArray(1, key) + '\4' + "/a b" + file);
    }
  }
}

/// Pictures in all formats that Qt writes, and a GIF.
void AddForeign(SeedFolder folder) {
  QImage image(9, 7, QImage::Format_ARGB32);
  image.fill(qRgba(200, 100, 50, 128));
  for (const QByteArray& format : QImageWriter::supportedImageFormats()) {
    for (const auto depth : {QImage::Format_ARGB32, QImage::Format_Indexed8, QImage::Format_Mono}) {
      QBuffer buffer;
      QImageWriter(&buffer, format).write(image.convertToFormat(depth));
      folder.Add(buffer.data());
    }
  }
  folder.Add(
      QByteArray::fromHex("47494638396101000100800000090909fafafa"
                          "21f904010000002c000000000100010000020244013b"));
}

}  // namespace
}  // namespace morvane

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QString top = QString::fromLocal8Bit(argv[argc - 1]);
  morvane::AddBmps(morvane::SeedFolder(top + "/fuzz_bmp"));
  morvane::AddSettings(morvane::SeedFolder(top + "/fuzz_settings"));
  morvane::AddForeign(morvane::SeedFolder(top + "/fuzz_custom_tile"));
  return 0;
}
