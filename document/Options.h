#pragma once

#include <string>

#include "document/Document.h"

namespace morvane {

/// The Options dialog: what its fields hold while it is open, and its events.
class Options {
 public:
  explicit Options(Document& document) : document_(document) {}

  std::string TextMapDir;
  std::string TextCustomDir;
  Color ColorBox = 0;
  Color GridColorBox = 0;
  int GridCheck = 0;

  /// Fills the fields from the settings.
  void Form_Load();
  void ButtonMapDir_Click() {
    Browse("Select the directory where Morvane maps will be saved.", TextMapDir);
  }
  void ButtonCustomDir_Click() {
    Browse("Select the directory with your collection of Morvane custom tiles.", TextCustomDir);
  }
  void PaletteButton_Click() { PickColor(ColorBox); }
  void GridPaletteButton_Click() { PickColor(GridColorBox); }
  /// Writes the fields into the settings. Returns whether the dialog may close: if the settings
  /// can't be written, it reports that and keeps the fields.
  bool cmdOK_Click();

 private:
  void Browse(const char* title, std::string& field);
  void PickColor(Color& box);

  Document& document_;
  /// The colour dialog's colour, initially black. Both boxes share it, even after a cancel.
  Color commonColor_ = 0;
};

}  // namespace morvane
