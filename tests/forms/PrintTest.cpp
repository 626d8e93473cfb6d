#include <QPrintDialog>
#include <QPrinter>

#include "platform/Images.h"
#include "platform/MapPrinter.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// The picture that a program makes of a file.
QImage Converted(const char* program, const QStringList& arguments, const char* picture) {
  EXPECT_EQ(QProcess::execute(program, arguments), 0);
  return QImage(picture).convertToFormat(QImage::Format_RGB32);
}

/// Chooses a PDF file in the setup dialog, and prints.
Failure PrintInto(MapPrinter& printer, const std::string& path, const Picture& map) {
  QTimer::singleShot(0, qApp, [&path] {
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    EXPECT_EQ(dialog->printer()->docName(), kProgramName);
    dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
    dialog->printer()->setOutputFileName(QString::fromStdString(path));
    dialog->reject();
  });
  printer.ShowSetup(nullptr, "Print Setup");
  return printer.Print(map.View());
}

TEST(Print, PutsTheMapAtTheTopLeftInItsNaturalSize) {
  const StartFolder folder;
  MapPrinter printer;
  Picture map(192, 96, 0x0000FF);  // two inches by one
  for (int x = 1; x < 192; x += 2) FillBox(map.Draw(), {x, 1, x + 1, 95}, 0x0000D0);
  ASSERT_EQ(PrintInto(printer, folder.File("map.pdf"), map), "");
  EXPECT_EQ(Converted("pdfimages", {"-png", "map.pdf", "in"}, "in-000.png"), ImageOver(map.View()));
  // At 254 dots to the inch, which are ten to the millimetre.
  const QImage paper =
      Converted("pdftoppm", {"-r", "254", "-png", "-singlefile", "map.pdf", "page"}, "page.png");
  const QRect place =
      QRegion(QPixmap::fromImage(paper).createMaskFromColor(Qt::white)).boundingRect();
  EXPECT_NEAR(place.width(), 508, 3);
  EXPECT_NEAR(place.height(), 254, 3);
  EXPECT_LT(std::max(place.left(), place.top()), 100) << "within a centimetre of the paper's edge";
}

TEST(Print, ReportsAMissingPrinterAndAnUnwritableFile) {
  MapPrinter printer;
  const Picture map(10, 10);
  EXPECT_EQ(printer.Print(map.View()),
            "There is no printer. Choose one, or a PDF file, with File > Print Setup.");
  for (const char* path : {"/proc/no/map.pdf", "/dev/full"}) {
    EXPECT_NE(PrintInto(printer, path, map).find(path), std::string::npos);
  }
}

}  // namespace
}  // namespace morvane
