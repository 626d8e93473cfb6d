#include "document/Printing.h"

#include "document/FailureReport.h"

namespace morvane {

void mnuFilePrint_Click(Document& document) {
  const Failure failure = document.platform.Print(document.Canvas.Image());
  if (!failure.empty()) {
    ReportFailure(document.platform, "The map could not be printed.", failure);
  }
}

void mnuFilePageSetup_Click(Document& document) {
  document.platform.ShowPrinterSetup("Print Setup");
}

}  // namespace morvane
