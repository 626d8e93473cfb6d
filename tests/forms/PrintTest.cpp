#include <gtest/gtest.h>

#include <QImage>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QTimer>

#include "document/picture/Blit.h"
#include "platform/MapPrinter.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// The page at 254 dots to the inch, which are ten to the millimetre.
QImage Paper(const char* pdf) {
  QProcess convert;
  convert.start("pdftoppm", {"-r", "254", "-png", pdf, "page"});
  EXPECT_TRUE(convert.waitForFinished());
  const QStringList pages = QDir().entryList({"page*.png"});
  EXPECT_EQ(pages.size(), 1);
  return pages.isEmpty() ? QImage() : QImage(pages[0]);
}

/// Chooses a PDF file in the setup dialog.
void ChooseFile(MapPrinter& printer, const std::string& path) {
  QTimer::singleShot(0, qApp, [&path] {
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
    dialog->printer()->setOutputFileName(QString::fromStdString(path));
    dialog->reject();
  });
  printer.ShowSetup(nullptr, "Print Setup");
}

/// The picture that is embedded in the page.
Picture Embedded(const char* pdf) {
  QProcess extract;
  extract.start("pdfimages", {"-png", pdf, "embedded"});
  EXPECT_TRUE(extract.waitForFinished());
  QImage image("embedded-000.png");
  image.convertTo(QImage::Format_RGB32);
  return Picture(PictureView{reinterpret_cast<const Pixel*>(image.constBits()), image.width(),
                             image.height(), image.width()});
}

TEST(Print, PutsTheMapAtTheTopLeftInItsNaturalSize) {
  const StartFolder folder;
  MapPrinter printer;
  ChooseFile(printer, folder.File("map.pdf"));
  Picture map(192, 96, 0x0000FF);  // two inches by one
  for (int x = 1; x < 192; x += 2) FillBox(map.Draw(), {x, 1, x + 1, 95}, 0x0000D0);
  ASSERT_EQ(printer.Print(map.View()), "");
  const QImage paper = Paper("map.pdf");
  QRect red;
  for (int y = 0; y < paper.height(); ++y) {
    for (int x = 0; x < paper.width(); ++x) {
      const QRgb pixel = paper.pixel(x, y);
      if (qRed(pixel) > 200 && qGreen(pixel) < 100) red |= QRect(x, y, 1, 1);
    }
  }
  EXPECT_EQ(Difference(Embedded("map.pdf").View(), map.View()), "");
  EXPECT_NEAR(red.width(), 508, 3);
  EXPECT_NEAR(red.height(), 254, 3);
  EXPECT_LT(red.left(), 100) << "within a centimetre of the paper's edge";
  EXPECT_LT(red.top(), 100);
}

TEST(Print, ReportsAMissingPrinterAndAnUnwritableFile) {
  MapPrinter printer;
  const Failure failure = printer.Print(Picture(10, 10).View());
  EXPECT_NE(failure.find("File > Print Setup"), std::string::npos) << failure;
  ChooseFile(printer, "/proc/no/map.pdf");
  EXPECT_NE(printer.Print(Picture(10, 10).View()), "");
  ChooseFile(printer, "/dev/full");
  EXPECT_NE(printer.Print(Picture(10, 10).View()), "");
}

}  // namespace
}  // namespace morvane
