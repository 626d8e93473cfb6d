#include "platform/MapPrinter.h"

#include <QImage>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace morvane {
namespace {

constexpr double kPixelsPerInch = 96;

}  // namespace

MapPrinter::MapPrinter() = default;
MapPrinter::~MapPrinter() = default;

QPrinter& MapPrinter::Printer() {
  if (!printer_) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setDocName("Morvane");
  }
  return *printer_;
}

Failure MapPrinter::Print(const PictureView& picture) {
  QPrinter& printer = Printer();
  const bool toFile = !printer.outputFileName().isEmpty();
  if (!toFile && QPrinterInfo(printer).isNull()) {
    return "There is no printer. Choose one, or a PDF file, with File > Print Setup.";
  }
  QPainter painter;
  if (!printer.isValid() || !painter.begin(&printer)) {
    const std::string target = toFile ? "The file " + printer.outputFileName().toStdString()
                                      : "The printer " + printer.printerName().toStdString();
    return target + " can't be used. Choose another with File > Print Setup.";
  }
  const QImage image(reinterpret_cast<const uchar*>(picture.pixels), picture.width, picture.height,
                     picture.stride * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32);
  const double scale = printer.resolution() / kPixelsPerInch;
  painter.scale(scale, scale);
  painter.drawImage(0, 0, image);
  return painter.end() ? Failure() : "The page could not be handed over to the printer.";
}

void MapPrinter::UseFile(const std::string& path) {
  Printer().setOutputFormat(QPrinter::PdfFormat);
  Printer().setOutputFileName(QString::fromStdString(path));
}

void MapPrinter::ShowSetup(QWidget* owner, const std::string& title) {
  QPrintDialog dialog(&Printer(), owner);
  dialog.setWindowTitle(QString::fromStdString(title));
  dialog.exec();
}

}  // namespace morvane
