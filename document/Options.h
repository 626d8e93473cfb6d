#pragma once

#include <string>

#include "document/Document.h"

namespace morvane {

/// The state of the Options dialog while it is open, and its events.
class Options {
 public:
  explicit Options(Document& document) : document_(document) {}

  std::string TextMapDir;
  std::string TextCustomDir;
  Color ColorBox = 0;
  Color GridColorBox = 0;
  int GridCheck = 0;  ///< 1 if ticked

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
  /// Writes the fields into the settings. Returns whether the dialog may close: if they can't be
  /// written, it reports that and stays open.
  bool cmdOK_Click();

 private:
  void Browse(const char* title, std::string& field);
  void PickColor(Color& box);

  Document& document_;
  /// The colour last chosen in the colour dialog, initially black. Both fields take it, even after
  /// a cancel.
  Color commonColor_ = 0;
};

}  // namespace morvane
