// Writes the files that the fuzzers start from, into one folder for each fuzzer.
#include <QBuffer>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>

#include "tests/support/BmpMaker.h"

namespace {

void Add(const char* fuzzer, const QByteArray& bytes) {
  static int count = 0;
  QDir().mkpath(fuzzer);
  QFile file(QString("%1/%2").arg(fuzzer).arg(++count));
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
    qFatal("A seed can't be written.");
  }
}

void AddBmp(std::uint32_t header, unsigned bits, std::uint32_t compression) {
  morvane::BmpMaker maker{.header = header, .width = 11, .height = 3, .bits = bits};
  maker.compression = compression;
  if (compression % 3 == 0 && compression > 0) maker.masks = {0x7C00, 0x3E0, 0x1F, 0xFF000000};
  if (bits <= 8) maker.palette = {0, 0xFFFFFF, 0x0A0507, 0xFF};
  maker.data = {3, 1, 0, 4, 1, 2, 3, 4, 0, 0, 0, 2, 2, 1, 9, 5, 0, 1};
  const unsigned rowBytes = (11 * bits + 31) / 32 * 4;
  maker.data.resize(std::size_t{3} * rowBytes, 0x37);
  const morvane::Bytes file = maker.Make();
  Add("fuzz_bmp", {reinterpret_cast<const char*>(file.data()), std::ssize(file)});
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  QDir().mkpath(argv[1]);
  QDir::setCurrent(argv[1]);
  for (const std::uint32_t header : {12U, 16U, 40U, 52U, 56U, 64U, 108U, 124U}) {
    for (const unsigned bits : {1U, 2U, 4U, 8U, 16U, 24U, 32U}) {
      for (const std::uint32_t compression : {0U, 1U, 2U, 3U, 4U, 6U}) {
        AddBmp(header, bits, compression);
      }
    }
  }
  Add("fuzz_settings",
      "\3\4/a b; mine\n[Map]\nDir=/maps\r\n\n[Custom]\nDir=\" /tiles \"\n[color]\n canvas = 1 ; "
      "old\n");
  QImage image(9, 7, QImage::Format_ARGB32);
  image.fill(qRgba(200, 100, 50, 128));
  for (const QByteArray& format : QImageWriter::supportedImageFormats()) {
    QBuffer buffer;
    QImageWriter(&buffer, format).write(image);
    Add("fuzz_custom_tile", buffer.data());
  }
  Add("fuzz_custom_tile", QByteArray::fromHex("47494638396101000100800000090909fafafa"
                                              "21f904010000002c000000000100010000020244013b"));
  return 0;
}
