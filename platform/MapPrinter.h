#pragma once

#include <QPrinter>
#include <optional>

#include "document/Platform.h"
#include "document/picture/Picture.h"

class QWidget;

namespace morvane {

/// The printer of the program, kept from one print to the next.
class MapPrinter {
 public:
  /// Prints one page with the picture at the top left of the printable area.
  Failure Print(const PictureView& picture);

  /// Lets the user choose the printer, or a PDF file in its place.
  void ShowSetup(QWidget* owner, const std::string& title);

 private:
  QPrinter& Printer();

  std::optional<QPrinter> printer_;  ///< created at the first use: that queries the print system
};

}  // namespace morvane
