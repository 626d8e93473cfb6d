#include "platform/MapPrinter.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <algorithm>

#include "platform/Images.h"

namespace morvane {
namespace {

constexpr double kPixelsPerInch = 96;

/// Qt doesn't report a full disk, but then the end of the file is missing.
bool IsWholePdf(const QString& path) {
  constexpr qint64 kTail = 32;
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return false;
  file.seek(std::max<qint64>(0, file.size() - kTail));
  return file.readAll().contains("%%EOF");
}

}  // namespace

QPrinter& MapPrinter::Printer() {
  if (!printer_) {
    printer_.emplace(QPrinter::HighResolution);
    printer_->setDocName(kProgramName);
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
  painter.setRenderHint(QPainter::LosslessImageRendering);
  const double scale = printer.resolution() / kPixelsPerInch;
  painter.scale(scale, scale);
  painter.drawImage(0, 0, ImageOver(picture));
  const bool handedOver = painter.end() && printer.printerState() != QPrinter::Error;
  if (toFile && !IsWholePdf(printer.outputFileName())) {
    return "The PDF file could not be written: " + printer.outputFileName().toStdString();
  }
  return handedOver ? Failure() : "The page could not be handed over to the printer.";
}

void MapPrinter::ShowSetup(QWidget* owner, const std::string& title) {
  QPrintDialog dialog(&Printer(), owner);
  dialog.setWindowTitle(QString::fromStdString(title));
  // Qt's text would be "Print", but this dialog only chooses a printer.
  const auto* buttons = dialog.findChild<QDialogButtonBox*>();
  if (auto* ok = buttons->button(QDialogButtonBox::Ok)) ok->setText("&OK");
  dialog.exec();
}

}  // namespace morvane
